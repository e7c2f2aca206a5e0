#include "support/win32/Picture.h"

#include <algorithm>
#include <cstddef>
#include <map>

#include "base/Contrast.h"

namespace pellmark::test {

namespace {

RECT clientOf(HWND window) {
    RECT client{};
    ::GetClientRect(window, &client);
    return client;
}

Color fromBitmap(std::uint32_t pixel) {
    return (pixel & 0xFF00U) | ((pixel >> 16U) & 0xFFU) | ((pixel & 0xFFU) << 16U);
}

}  // namespace

Picture::Picture(HWND window) : Picture(window, clientOf(window)) {}

Picture::Picture(HWND window, const RECT& area) {
    ::RedrawWindow(::GetAncestor(window, GA_ROOT), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const int width = static_cast<int>(area.right - area.left);
    const int height = static_cast<int>(area.bottom - area.top);
    if (width <= 0 || height <= 0) return;
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    const HDC from = ::GetDC(window);
    const HDC memory = ::CreateCompatibleDC(from);
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(memory, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, width, height, from, static_cast<int>(area.left), static_cast<int>(area.top),
             SRCCOPY);
    ::GdiFlush();
    const auto* pixel = static_cast<const std::uint32_t*>(bits);
    pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::transform(pixel, pixel + pixels_.size(), pixels_.begin(), &fromBitmap);
    ::SelectObject(memory, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(window, from);
}

Color Picture::background() const {
    std::map<Color, int> counts;
    for (const Color each : pixels_)
        ++counts[each];
    const auto most = std::max_element(counts.begin(), counts.end(), [](const auto& one, const auto& other) {
        return one.second < other.second;
    });
    return most == counts.end() ? 0 : most->first;
}

double Picture::contrast() const {
    const Color back = background();
    double most = 1;
    for (const Color each : pixels_)
        most = std::max(most, contrastOf(each, back));
    return most;
}

}  // namespace pellmark::test
