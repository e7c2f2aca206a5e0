// Build tool, run on the machine that builds: finishes the type library that the IDL compiler made.
//
// The compiler refuses two things that the automation interface needs: a default text on a parameter passed
// by reference, and help texts on the members of an enumeration or a record. The first is compiled as a plain
// BSTR with a default and turned into [in, out] BSTR* here; the second are read from a text file. Whatever is
// not found as expected stops the build, so that a changed compiler cannot quietly give another library.
//
// usage: finish-typelib INPUT.tlb HELP.txt OUTPUT.tlb
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

// Layout of the "MSFT" format: a header, one offset per type, a directory of 15 segments, the segments, and
// behind them one block of members per type.
constexpr std::size_t kHeaderSize = 0x54;
constexpr std::size_t kHelpDllFlag = 0x100;
constexpr std::size_t kSegmentCount = 15;
constexpr std::size_t kTypeInfoSegment = 0;
constexpr std::size_t kNameSegment = 7;
constexpr std::size_t kStringSegment = 8;
constexpr std::size_t kTypeDescriptionSegment = 9;
constexpr std::size_t kFunctionHasDefaults = 0x1000;
constexpr std::size_t kParameterSize = 12;
constexpr std::size_t kVariableSizeWithHelp = 0x1c;

constexpr std::uint32_t kBstr = 0x80080008U;  // "a simple type", twice VT_BSTR
constexpr std::uint32_t kPointer = 26;        // VT_PTR
constexpr std::uint32_t kIn = 1, kOut = 2, kHasDefault = 0x20;

[[noreturn]] void fail(const std::string& why) {
    throw std::runtime_error(why);
}

std::uint32_t get32(const Bytes& bytes, std::size_t at) {
    if (at + 4 > bytes.size()) {
        fail("the type library is cut short");
    }
    std::uint32_t value = 0;
    std::memcpy(&value, bytes.data() + at, 4);
    return value;
}

void put32(Bytes& bytes, std::size_t at, std::uint32_t value) {
    if (at + 4 > bytes.size()) {
        fail("the type library is cut short");
    }
    std::memcpy(bytes.data() + at, &value, 4);
}

Bytes slice(const Bytes& bytes, std::size_t from, std::size_t to) {
    if (from > to || to > bytes.size()) {
        fail("the type library is cut short");
    }
    return {bytes.begin() + static_cast<std::ptrdiff_t>(from),
            bytes.begin() + static_cast<std::ptrdiff_t>(to)};
}

struct Segment {
    std::uint32_t offset = 0;
    Bytes bytes;
    bool present = false;
};

struct Type {
    std::size_t info = 0;  // offset of its description in the type segment
    std::uint32_t memberOffset = 0;
    std::vector<Bytes> records;  // functions first, then variables
    Bytes trailer;               // ids and names of the members; their offsets are made anew
    std::size_t functions = 0;
    std::size_t variables = 0;
};

class TypeLib {
  public:
    explicit TypeLib(Bytes bytes) : file_(std::move(bytes)) {
        if (get32(file_, 0) != 0x5446534DU) {
            fail("not a type library");
        }
        const std::size_t types = get32(file_, 0x20);
        offsets_ = kHeaderSize + ((get32(file_, 0x14) & kHelpDllFlag) != 0 ? 4 : 0);
        directory_ = offsets_ + 4 * types;
        bodyStart_ = directory_ + 16 * kSegmentCount;
        readSegments();
        for (std::size_t i = 0; i < types; ++i) {
            readType(get32(file_, offsets_ + 4 * i));
        }
    }

    /// Number of parameters turned from BSTR with a default into [in, out] BSTR* with a default.
    int passDefaultTextsByReference() {
        const std::uint32_t reference = pointerToText();
        int changed = 0;
        for (Type& type : types_) {
            for (std::size_t i = 0; i < type.functions; ++i) {
                changed += passByReference(type.records[i], reference);
            }
        }
        return changed;
    }

    void describe(const std::string& typeName, const std::string& member, const std::string& help) {
        for (Type& type : types_) {
            if (nameAt(get32(segments_[kTypeInfoSegment].bytes, type.info + 0x34)) != typeName) {
                continue;
            }
            for (std::size_t i = 0; i < type.variables; ++i) {
                const std::size_t element = type.functions + i;
                const std::size_t nameSlot = 4 * (type.functions + type.variables + element);
                if (nameAt(get32(type.trailer, nameSlot)) == member) {
                    setHelp(type.records[element], addString(help));
                    return;
                }
            }
        }
        fail("no member " + typeName + "." + member);
    }

    Bytes write() const {
        Bytes out = slice(file_, 0, bodyStart_);
        std::vector<std::size_t> order;
        for (std::size_t i = 0; i < kSegmentCount; ++i) {
            if (segments_[i].present) {
                order.push_back(i);
            }
        }
        std::sort(order.begin(), order.end(),
                  [this](std::size_t a, std::size_t b) { return segments_[a].offset < segments_[b].offset; });
        std::size_t typeInfosAt = 0;
        for (const std::size_t i : order) {
            put32(out, directory_ + 16 * i, static_cast<std::uint32_t>(out.size()));
            put32(out, directory_ + 16 * i + 4, static_cast<std::uint32_t>(segments_[i].bytes.size()));
            if (i == kTypeInfoSegment) {
                typeInfosAt = out.size();
            }
            out.insert(out.end(), segments_[i].bytes.begin(), segments_[i].bytes.end());
        }
        for (const Type& type : types_) {
            put32(out, typeInfosAt + type.info + 4, static_cast<std::uint32_t>(out.size()));
            writeMembers(type, out);
        }
        return out;
    }

  private:
    void readSegments() {
        segments_.resize(kSegmentCount);
        for (std::size_t i = 0; i < kSegmentCount; ++i) {
            Segment& segment = segments_[i];
            segment.offset = get32(file_, directory_ + 16 * i);
            segment.present = segment.offset != 0xFFFFFFFFU;
            if (segment.present) {
                segment.bytes =
                    slice(file_, segment.offset, segment.offset + get32(file_, directory_ + 16 * i + 4));
            }
        }
    }

    void readType(std::size_t info) {
        Type type;
        type.info = info;
        const Bytes& infos = segments_[kTypeInfoSegment].bytes;
        type.memberOffset = get32(infos, info + 4);
        const std::uint32_t elements = get32(infos, info + 0x18);
        type.functions = elements & 0xFFFF;
        type.variables = elements >> 16;
        const std::size_t count = type.functions + type.variables;
        if (count > 0) {
            std::size_t at = type.memberOffset + 4;
            const std::size_t end = at + get32(file_, type.memberOffset);
            while (at < end) {
                const std::size_t size = get32(file_, at) & 0xFFFF;
                type.records.push_back(slice(file_, at, at + size));
                at += size;
            }
            if (at != end || type.records.size() != count) {
                fail("the members of a type are not laid out as expected");
            }
            type.trailer = slice(file_, end, end + 8 * count);
        }
        types_.push_back(std::move(type));
    }

    static void writeMembers(const Type& type, Bytes& out) {
        if (type.records.empty()) {
            return;
        }
        const auto append = [&out](std::uint32_t value) {
            out.resize(out.size() + 4);
            put32(out, out.size() - 4, value);
        };
        std::vector<std::uint32_t> starts;
        std::uint32_t total = 0;
        for (const Bytes& record : type.records) {
            starts.push_back(total);
            total += static_cast<std::uint32_t>(record.size());
        }
        append(total);
        for (const Bytes& record : type.records) {
            out.insert(out.end(), record.begin(), record.end());
        }
        out.insert(out.end(), type.trailer.begin(), type.trailer.end());
        for (const std::uint32_t start : starts) {
            append(start);
        }
    }

    std::string nameAt(std::uint32_t offset) const {
        const Bytes& names = segments_[kNameSegment].bytes;
        const std::size_t length = get32(names, offset + 8) & 0xFF;
        const Bytes text = slice(names, offset + 12, offset + 12 + length);
        return {text.begin(), text.end()};
    }

    /// The description of "pointer to BSTR", which the compiler wrote for the results of the picking methods.
    std::uint32_t pointerToText() const {
        const Bytes& table = segments_[kTypeDescriptionSegment].bytes;
        for (std::size_t at = 0; at + 8 <= table.size(); at += 8) {
            if ((get32(table, at) & 0xFFFF) == kPointer && get32(table, at + 4) == kBstr) {
                return static_cast<std::uint32_t>(at);
            }
        }
        fail("no pointer to BSTR among the type descriptions");
    }

    static int passByReference(Bytes& function, std::uint32_t reference) {
        if ((get32(function, 0x10) & kFunctionHasDefaults) == 0) {
            return 0;
        }
        const std::size_t count = get32(function, 0x14) & 0xFFFF;
        int changed = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t at = function.size() - kParameterSize * (count - i);
            const std::uint32_t flags = get32(function, at + 8);
            if (get32(function, at) == kBstr && (flags & kHasDefault) != 0) {
                put32(function, at, reference);
                put32(function, at + 8, flags | kIn | kOut);
                ++changed;
            }
        }
        return changed;
    }

    static void setHelp(Bytes& variable, std::uint32_t help) {
        if (variable.size() < kVariableSizeWithHelp) {
            variable.resize(kVariableSizeWithHelp, 0);
            put32(variable, 0,
                  (get32(variable, 0) & 0xFFFF0000U) | static_cast<std::uint32_t>(kVariableSizeWithHelp));
        }
        put32(variable, 0x18, help);
    }

    /// Strings are a 16-bit length and the characters, filled up with 'W' to a multiple of 4 and at least 8.
    std::uint32_t addString(const std::string& text) {
        Bytes& strings = segments_[kStringSegment].bytes;
        const auto offset = static_cast<std::uint32_t>(strings.size());
        strings.push_back(static_cast<std::uint8_t>(text.size() & 0xFF));
        strings.push_back(static_cast<std::uint8_t>(text.size() >> 8));
        strings.insert(strings.end(), text.begin(), text.end());
        while (strings.size() % 4 != 0 || strings.size() - offset < 8) {
            strings.push_back('W');
        }
        return offset;
    }

    Bytes file_;
    std::size_t offsets_ = 0;
    std::size_t directory_ = 0;
    std::size_t bodyStart_ = 0;
    std::vector<Segment> segments_;
    std::vector<Type> types_;
};

Bytes readFile(const char* path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        fail(std::string("cannot read ") + path);
    }
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void run(const char* input, const char* help, const char* output) {
    TypeLib library(readFile(input));
    if (library.passDefaultTextsByReference() == 0) {
        fail("no parameter is a text with a default");
    }
    std::ifstream lines(help);
    std::string line;
    while (std::getline(lines, line)) {
        const std::size_t dot = line.find('.');
        const std::size_t equals = line.find('=');
        if (dot == std::string::npos || equals == std::string::npos || dot > equals) {
            fail("not of the form Type.Member=Text: " + line);
        }
        library.describe(line.substr(0, dot), line.substr(dot + 1, equals - dot - 1),
                         line.substr(equals + 1));
    }
    const Bytes bytes = library.write();
    std::ofstream out(output, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
        fail(std::string("cannot write ") + output);
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::cerr << "usage: finish-typelib INPUT.tlb HELP.txt OUTPUT.tlb\n";
        return EXIT_FAILURE;
    }
    try {
        run(arguments[1], arguments[2], arguments[3]);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "finish-typelib: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
