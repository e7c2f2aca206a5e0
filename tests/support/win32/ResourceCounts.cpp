#include "support/win32/ResourceCounts.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace pellmark::test {

namespace {

/// Probe menus fill the holes of the handle table: the highest index among them is what is used below it.
long usedUserHandles() {
    if (const DWORD counted = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS)) {
        return static_cast<long>(counted);
    }
    constexpr int kProbes = 600;
    std::array<HMENU, kProbes> probes{};
    long highest = 0;
    for (HMENU& each : probes) {
        each = ::CreateMenu();
        highest = std::max(highest, static_cast<long>(reinterpret_cast<std::uintptr_t>(each) & 0xFFFF) / 2);
    }
    for (const HMENU each : probes)
        ::DestroyMenu(each);
    return highest - kProbes;
}

long usedGdiHandles() {
    if (const DWORD counted = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS)) {
        return static_cast<long>(counted);
    }
    struct Entry {
        void* object;
        std::uint32_t owner;
        std::uint16_t unique;
        std::uint8_t type;
        std::uint8_t flags;
        void* user;
    };
    static_assert(sizeof(Entry) == 24);
    constexpr std::size_t kHandles = 16384;
    constexpr std::size_t kTableInTheProcessBlock = 0xF8;
    constexpr std::size_t kProcessBlockInTheThreadBlock = 0x60;
    std::uintptr_t block = 0;
    __asm__("movq %%gs:(%1), %0" : "=r"(block) : "r"(kProcessBlockInTheThreadBlock));
    const auto* table = *reinterpret_cast<const Entry* const*>(block + kTableInTheProcessBlock);
    return static_cast<long>(
        std::count_if(table, table + kHandles, [](const Entry& each) { return each.type != 0; }));
}

long usedKernelHandles() {
    struct Handle {
        void* object;
        ULONG_PTR process;
        ULONG_PTR value;
        std::uint32_t access;
        std::uint16_t trace;
        std::uint16_t type;
        std::uint32_t attributes;
        std::uint32_t reserved;
    };
    struct Head {
        ULONG_PTR count;
        ULONG_PTR reserved;
    };
    constexpr int kExtendedHandleInformation = 64;
    using Query = LONG(WINAPI*)(int, void*, ULONG, ULONG*);
    static const auto query = reinterpret_cast<Query>(
        ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation"));
    std::vector<std::uint8_t> answer(1U << 20U);
    ULONG needed = 0;
    while (query(kExtendedHandleInformation, answer.data(), static_cast<ULONG>(answer.size()), &needed) < 0) {
        if (answer.size() > (64U << 20U)) return -1;
        answer.resize(answer.size() * 2);
    }
    const auto* head = reinterpret_cast<const Head*>(answer.data());
    const auto* first = reinterpret_cast<const Handle*>(head + 1);
    return static_cast<long>(std::count_if(first, first + head->count, [](const Handle& each) {
        return each.process == ::GetCurrentProcessId();
    }));
}

}  // namespace

ResourceCounts ResourceCounts::now() {
    return {usedUserHandles(), usedGdiHandles(), usedKernelHandles()};
}

std::ostream& operator<<(std::ostream& out, const ResourceCounts& counts) {
    return out << counts.user << " user, " << counts.gdi << " GDI, " << counts.kernel << " kernel objects";
}

}  // namespace pellmark::test
