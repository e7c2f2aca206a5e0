#include "refhost/automation/CyclePicture.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <initializer_list>
#include <vector>

namespace norvex {

namespace {

constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kSteel = RGB(214, 222, 231);
constexpr COLORREF kEdge = RGB(74, 85, 99);
constexpr COLORREF kTool = RGB(246, 207, 118);
constexpr COLORREF kMotion = RGB(190, 40, 40);
constexpr COLORREF kMeasure = RGB(30, 84, 158);

/// Selects an object for the time of a scope and deletes it.
class Selected {
  public:
    Selected(HDC device, HGDIOBJ object) : device_(device), before_(SelectObject(device, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() { DeleteObject(SelectObject(device_, before_)); }

  private:
    HDC device_;
    HGDIOBJ before_;
};

/// A square of 100 by 100 units in the middle of the area.
class Canvas {
  public:
    Canvas(HDC device, const RECT& area)
        : device_(device),
          scale_(std::min(area.right - area.left, area.bottom - area.top) / 100.0),
          left_(area.left + (area.right - area.left - 100 * scale_) / 2),
          top_(area.top + (area.bottom - area.top - 100 * scale_) / 2) {}

    void shape(std::initializer_list<std::pair<double, double>> corners, COLORREF fill) const {
        std::vector<POINT> points;
        for (const auto& [x, y] : corners)
            points.push_back(at(x, y));
        const Selected pen(device_, CreatePen(PS_SOLID, width(0.6), kEdge));
        const Selected brush(device_, CreateSolidBrush(fill));
        Polygon(device_, points.data(), static_cast<int>(points.size()));
    }
    void box(double left, double top, double right, double bottom, COLORREF fill) const {
        shape({{left, top}, {right, top}, {right, bottom}, {left, bottom}}, fill);
    }
    void line(double x1, double y1, double x2, double y2, COLORREF color, int style = PS_SOLID,
              double thickness = 0.6) const {
        const Selected pen(device_, CreatePen(style, style == PS_SOLID ? width(thickness) : 1, color));
        const POINT from = at(x1, y1);
        const POINT to = at(x2, y2);
        MoveToEx(device_, from.x, from.y, nullptr);
        LineTo(device_, to.x, to.y);
    }
    void circle(double x, double y, double radius, COLORREF fill) const {
        const Selected pen(device_, CreatePen(PS_SOLID, width(0.6), kEdge));
        const Selected brush(device_, CreateSolidBrush(fill));
        const POINT from = at(x - radius, y - radius);
        const POINT to = at(x + radius, y + radius);
        Ellipse(device_, from.x, from.y, to.x, to.y);
    }
    /// A line with a head at its end.
    void arrow(double x1, double y1, double x2, double y2, COLORREF color) const {
        line(x1, y1, x2, y2, color, PS_SOLID, 0.9);
        const double length = std::hypot(x2 - x1, y2 - y1);
        const double head = std::min(4.0, length * 0.6);
        const double alongX = (x2 - x1) / length * head;
        const double alongY = (y2 - y1) / length * head;
        for (const double side : {0.4, -0.4})
            line(x2, y2, x2 - alongX + side * alongY, y2 - alongY - side * alongX, color, PS_SOLID, 0.9);
    }
    /// A distance between two points, with its letter beside the middle.
    void measure(double x1, double y1, double x2, double y2, const wchar_t* letter) const {
        const double x = (x1 + x2) / 2;
        const double y = (y1 + y2) / 2;
        arrow(x, y, x1, y1, kMeasure);
        arrow(x, y, x2, y2, kMeasure);
        const bool isUpright = std::abs(x2 - x1) < std::abs(y2 - y1);
        write(isUpright ? x + 3.5 : x - 2, isUpright ? y - 4 : y - 10, letter, kMeasure);
    }
    void write(double x, double y, const wchar_t* text, COLORREF color) const {
        LOGFONTW description{};
        GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(description), &description);
        description.lfHeight = -std::max(static_cast<int>(std::lround(6.5 * scale_)), 9);
        description.lfItalic = TRUE;
        const Selected font(device_, CreateFontIndirectW(&description));
        SetTextColor(device_, color);
        SetBkMode(device_, TRANSPARENT);
        const POINT place = at(x, y);
        TextOutW(device_, place.x, place.y, text, static_cast<int>(std::wcslen(text)));
    }
    /// The sense in which the tool or the part turns, seen from the side.
    void turn(double x, double y) const {
        const Selected pen(device_, CreatePen(PS_SOLID, width(0.9), kMotion));
        const POINT from = at(x - 8, y - 3);
        const POINT to = at(x + 8, y + 3);
        const POINT begin = at(x + 8, y - 1);
        const POINT end = at(x - 8, y - 1);
        Arc(device_, from.x, from.y, to.x, to.y, end.x, end.y, begin.x, begin.y);
        line(x + 8, y, x + 5, y - 2.5, kMotion, PS_SOLID, 0.9);
        line(x + 8, y, x + 9.5, y - 3.5, kMotion, PS_SOLID, 0.9);
        write(x + 11, y - 5, L"n", kMotion);
    }

  private:
    POINT at(double x, double y) const {
        return {static_cast<LONG>(std::lround(left_ + x * scale_)),
                static_cast<LONG>(std::lround(top_ + y * scale_))};
    }
    int width(double units) const { return std::max(static_cast<int>(std::lround(units * scale_)), 1); }

    HDC device_;
    double scale_;
    double left_;
    double top_;
};

/// The flutes of a tool between two heights.
void drawFlutes(const Canvas& canvas, double left, double right, double top, double bottom) {
    constexpr double kStep = 9;
    for (double y = top; y + kStep <= bottom; y += kStep)
        canvas.line(left, y + kStep, right, y, kEdge);
}

void drawRetractPlane(const Canvas& canvas, double y, double surface) {
    canvas.line(4, y, 96, y, kMeasure, PS_DASH);
    canvas.measure(88, y, 88, surface, L"R");
}

void drawMilling(const Canvas& canvas) {
    canvas.shape({{4, 52}, {46, 52}, {46, 70}, {96, 70}, {96, 92}, {4, 92}}, kSteel);
    canvas.line(46, 52, 96, 52, kEdge, PS_DOT);
    canvas.box(38, 24, 62, 70, kTool);
    canvas.box(42, 8, 58, 24, kTool);
    drawFlutes(canvas, 38, 62, 28, 70);
    canvas.turn(50, 12);
    canvas.measure(38, 29, 62, 29, L"D");
    canvas.measure(80, 52, 80, 70, L"ap");
    canvas.measure(46, 80, 62, 80, L"ae");
    canvas.arrow(34, 40, 14, 40, kMotion);
    canvas.write(18, 42, L"f", kMotion);
}

void drawFaceMilling(const Canvas& canvas) {
    canvas.shape({{4, 60}, {40, 60}, {40, 68}, {96, 68}, {96, 92}, {4, 92}}, kSteel);
    canvas.line(40, 60, 96, 60, kEdge, PS_DOT);
    canvas.shape({{30, 44}, {74, 44}, {80, 66}, {24, 66}}, kTool);
    canvas.box(44, 10, 60, 44, kTool);
    for (const double x : {28.0, 44.0, 60.0, 74.0})
        canvas.box(x - 3, 60, x + 2, 68, kEdge);
    canvas.turn(52, 18);
    canvas.measure(24, 40, 80, 40, L"D");
    canvas.measure(90, 60, 90, 68, L"ap");
    canvas.measure(40, 84, 80, 84, L"ae");
    canvas.arrow(20, 52, 4, 52, kMotion);
    canvas.write(8, 42, L"f", kMotion);
}

/// A hole in section under the tool that makes it.
void drawHole(const Canvas& canvas, double radius, double bottom) {
    canvas.box(4, 46, 96, 92, kSteel);
    canvas.shape({{50 - radius, 46}, {50 + radius, 46}, {50 + radius, bottom}, {50 - radius, bottom}},
                 kPaper);
}

void drawDrilling(const Canvas& canvas, bool pecks) {
    drawHole(canvas, 12, 76);
    canvas.shape({{38, 76}, {62, 76}, {50, 83}}, kPaper);
    canvas.shape({{38, 14}, {62, 14}, {62, 62}, {50, 69}, {38, 62}}, kTool);
    drawFlutes(canvas, 38, 62, 18, 60);
    canvas.turn(50, 10);
    canvas.measure(38, 27, 62, 27, L"D");
    drawRetractPlane(canvas, 36, 46);
    canvas.arrow(28, 50, 28, 70, kMotion);
    canvas.write(22, 56, L"f", kMotion);
    if (!pecks) return;
    canvas.line(62, 60, 80, 60, kMeasure, PS_DASH);
    canvas.line(62, 74, 80, 74, kMeasure, PS_DASH);
    canvas.measure(72, 60, 72, 74, L"q");
}

void drawCountersinking(const Canvas& canvas) {
    drawHole(canvas, 8, 92);
    canvas.shape({{34, 46}, {66, 46}, {58, 54}, {42, 54}}, kPaper);
    canvas.shape({{32, 22}, {68, 22}, {68, 36}, {50, 54}, {32, 36}}, kTool);
    canvas.box(44, 6, 56, 22, kTool);
    canvas.turn(50, 11);
    canvas.measure(32, 30, 68, 30, L"D");
    canvas.arrow(24, 34, 24, 52, kMotion);
    canvas.write(18, 38, L"f", kMotion);
    canvas.write(66, 54, L"angle", kMeasure);
}

void drawTapping(const Canvas& canvas) {
    drawHole(canvas, 13, 84);
    canvas.box(40, 10, 60, 66, kTool);
    for (double y = 34; y < 66; y += 5) {
        canvas.line(38, y + 2.5, 62, y, kEdge);
        canvas.line(38, y + 2.5, 40, y + 5, kEdge);
    }
    canvas.turn(50, 12);
    canvas.measure(40, 29, 60, 29, L"D");
    drawRetractPlane(canvas, 36, 46);
    canvas.measure(70, 54, 70, 64, L"P");
    canvas.arrow(28, 50, 28, 70, kMotion);
    canvas.write(22, 56, L"f", kMotion);
}

void drawReaming(const Canvas& canvas, bool isBoring) {
    drawHole(canvas, 14, 84);
    canvas.box(isBoring ? 42 : 37, 10, isBoring ? 56 : 63, 68, kTool);
    if (isBoring) {
        canvas.shape({{56, 58}, {64, 60}, {64, 64}, {56, 66}}, kEdge);
        canvas.measure(58, 74, 64, 74, L"ap");
    } else {
        for (const double x : {42.0, 47.0, 53.0, 58.0})
            canvas.line(x, 30, x, 68, kEdge);
    }
    canvas.turn(50, 12);
    canvas.measure(36, 29, 64, 29, L"D");
    drawRetractPlane(canvas, 36, 46);
    canvas.arrow(28, 50, 28, 70, kMotion);
    canvas.write(22, 56, L"f", kMotion);
}

/// A part between centres, with its axis.
void drawShaft(const Canvas& canvas, double top, double bottom) {
    canvas.box(4, top, 96, bottom, kSteel);
    canvas.line(0, 44, 100, 44, kEdge, PS_DASHDOT);
    canvas.turn(18, 44);
    canvas.measure(86, top, 86, bottom, L"D");
}

void drawTurning(const Canvas& canvas) {
    drawShaft(canvas, 20, 68);
    canvas.box(52, 62, 96, 68, kPaper);
    canvas.line(52, 68, 96, 68, kEdge, PS_DOT);
    canvas.shape({{52, 62}, {66, 66}, {66, 78}, {56, 78}}, kTool);
    canvas.box(58, 76, 72, 94, kTool);
    canvas.measure(78, 62, 78, 68, L"ap");
    canvas.arrow(50, 84, 30, 84, kMotion);
    canvas.write(36, 86, L"f", kMotion);
}

void drawGrooving(const Canvas& canvas) {
    drawShaft(canvas, 20, 68);
    canvas.box(46, 56, 56, 69, kPaper);
    canvas.box(46, 56, 56, 94, kTool);
    canvas.arrow(66, 92, 66, 74, kMotion);
    canvas.write(70, 80, L"f", kMotion);
    canvas.measure(36, 56, 36, 68, L"ap");
}

void drawThreadTurning(const Canvas& canvas) {
    drawShaft(canvas, 20, 68);
    for (double x = 46; x < 92; x += 8)
        canvas.shape({{x, 68}, {x + 4, 62}, {x + 8, 68}}, kPaper);
    canvas.shape({{46, 68}, {54, 68}, {50, 62}}, kTool);
    canvas.box(44, 68, 56, 92, kTool);
    canvas.measure(66, 76, 74, 76, L"P");
    canvas.arrow(40, 84, 22, 84, kMotion);
    canvas.write(28, 86, L"f", kMotion);
}

void drawProbing(const Canvas& canvas) {
    drawHole(canvas, 22, 84);
    canvas.box(40, 6, 60, 24, kTool);
    canvas.box(48, 24, 52, 60, kTool);
    canvas.circle(50, 62, 5, kMotion);
    canvas.arrow(44, 62, 29, 62, kMotion);
    canvas.arrow(56, 62, 71, 62, kMotion);
    canvas.measure(45, 74, 55, 74, L"D");
    drawRetractPlane(canvas, 36, 46);
}

void drawDeburring(const Canvas& canvas) {
    canvas.shape({{4, 56}, {48, 56}, {56, 64}, {56, 92}, {4, 92}}, kSteel);
    canvas.shape({{40, 24}, {76, 24}, {76, 42}, {58, 70}, {40, 42}}, kTool);
    canvas.box(52, 6, 64, 24, kTool);
    canvas.turn(58, 12);
    canvas.measure(40, 30, 76, 30, L"D");
    canvas.measure(66, 56, 66, 64, L"ap");
    canvas.arrow(34, 48, 14, 48, kMotion);
    canvas.write(20, 38, L"f", kMotion);
}

}  // namespace

void drawCycle(HDC device, const RECT& area, const CuttingCycle& cycle) {
    const HBRUSH paper = CreateSolidBrush(kPaper);
    FillRect(device, &area, paper);
    DeleteObject(paper);
    const Canvas canvas(device, area);
    switch (cycle.family) {
        case kMilling:
            return cycle.id == cycle::kFaceMilling ? drawFaceMilling(canvas) : drawMilling(canvas);
        case kDrilling:
            return cycle.id == cycle::kCountersinking
                       ? drawCountersinking(canvas)
                       : drawDrilling(canvas, cycle.id == cycle::kPeckDrilling);
        case kTapping:
            return drawTapping(canvas);
        case kReaming:
        case kBoring:
            return drawReaming(canvas, cycle.family == kBoring);
        case kTurning:
            return drawTurning(canvas);
        case kGrooving:
            return drawGrooving(canvas);
        case kThreadTurning:
            return drawThreadTurning(canvas);
        case kProbing:
            return drawProbing(canvas);
        case kDeburring:
            return drawDeburring(canvas);
        default:
            return drawMilling(canvas);
    }
}

}  // namespace norvex
