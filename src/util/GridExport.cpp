#include "util/GridExport.h"

#include <functional>
#include <string_view>

#include "controls/grid/DelimitedExport.h"
#include "settings/NumberOptions.h"
#include "util/CodePageText.h"
#include "util/FrmProgress.h"
#include "util/ReplacingFile.h"

namespace pellmark {

namespace {

/// From so many rows on a person waits long enough to want to see how far it is.
constexpr int kManyRows = 50'000;
/// By which other programs know the encoding.
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Thrown through the grid's export; a way out, not a failure.
struct Cancelled {};

/// Texts with a place for what they are about: "%1" is replaced.
std::string filled(std::string text, const std::string& place, const std::string& value) {
    const std::size_t at = text.find(place);
    return at == std::string::npos ? text : text.replace(at, place.size(), value);
}

}  // namespace

/// One export on its way.
class GridExport::Run {
  public:
    Run(GridExport& of, const Grid& grid, const std::string& path, const DelimitedFormat& format)
        : of_(of), grid_(grid), format_(format), file_(of.files_, path) {}

    /// False when the person cancelled.
    bool save(WindowHandle owner) {
        CodePageText text(of_.codePage_);
        if (!write(owner, [&text](std::string_view piece) { return text.encode(piece); })) return false;
        if (text.lost() > 0) {
            if (!mayBeUnicode(text)) return false;
            file_.startAgain();
            file_.append(kUtf8Mark);
            if (!write(owner, [](std::string_view piece) { return std::string(piece); })) return false;
        }
        file_.keep();
        return true;
    }

  private:
    using Encoder = std::function<std::string(std::string_view)>;
    using Report = std::function<bool(int rowsDone)>;

    bool write(WindowHandle owner, const Encoder& encode) {
        if (grid_.rows() < kManyRows) return writeWith([](int) { return true; }, encode);
        bool whole = false;
        FrmProgress progress(of_.person_, of_.idle_, of_.person_.texts.GetString("The rows are being saved"));
        progress.run(owner, [&] {
            whole = writeWith([&](int rowsDone) { return progress.report(rowsDone - 1, grid_.dataRows()); },
                              encode);
        });
        return whole;
    }

    bool writeWith(const Report& mayGoOn, const Encoder& encode) {
        try {
            writeDelimited(grid_, format_, [&](std::string_view piece, int rowsDone) {
                file_.append(encode(piece));
                if (!mayGoOn(rowsDone)) throw Cancelled();
            });
            return true;
        } catch (const Cancelled&) {
            return false;
        }
    }

    bool mayBeUnicode(const CodePageText& text) const {
        std::string question = of_.person_.texts.GetString(
            "%1 character(s), the first '%2', need a Unicode file (UTF-8). Save such a file?");
        question = filled(question, "%1", std::to_string(text.lost()));
        question = filled(question, "%2", text.firstLost());
        return of_.person_.show({question, "", MessageIcon::Question, MessageButtons::OkCancel}) ==
               MessageAnswer::Ok;
    }

    GridExport& of_;
    const Grid& grid_;
    DelimitedFormat format_;
    ReplacingFile file_;
};

bool GridExport::save(const Grid& grid, const std::string& path, char separator, WindowHandle owner) {
    DelimitedFormat format;
    format.separator = separator;
    format.escapeFormulas = settings_.orDefault(option::kExportFormulasAsText) != 0;
    return Run(*this, grid, path, format).save(owner);
}

}  // namespace pellmark
