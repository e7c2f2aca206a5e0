#include "support/Measure.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace bench {

double medianOf(std::vector<double> values) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double millisecondsOf(const std::function<void()>& work) {
    const std::clock_t start = std::clock();
    work();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

Comparison compare(int repetitions, const std::function<void()>& measured,
                   const std::function<void()>& baseline) {
    std::vector<double> first;
    std::vector<double> second;
    std::vector<double> ratios;
    measured();
    baseline();
    for (int i = 0; i < repetitions; ++i) {
        first.push_back(millisecondsOf(measured));
        second.push_back(millisecondsOf(baseline));
        ratios.push_back(first.back() / second.back());
    }
    return {medianOf(first), medianOf(second), medianOf(ratios)};
}

double medianMilliseconds(int repetitions, const std::function<void()>& work) {
    std::vector<double> times;
    work();
    for (int i = 0; i < repetitions; ++i)
        times.push_back(millisecondsOf(work));
    return medianOf(times);
}

Table::Table(std::vector<std::string> headings) {
    const std::size_t columns = headings.size();
    rows_.push_back(std::move(headings));
    rows_.emplace_back(columns, "---");
}

void Table::add(std::vector<std::string> cells) {
    rows_.push_back(std::move(cells));
}

void Table::print() const {
    std::vector<std::size_t> widths(rows_.front().size());
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            std::printf("| %-*s ", static_cast<int>(widths[i]), row[i].c_str());
        }
        std::printf("|\n");
    }
    std::fflush(stdout);
}

std::string number(double value, int places) {
    char text[64];
    std::snprintf(text, sizeof(text), "%.*f", places, value);
    return text;
}

std::size_t heapBytes() {
#ifdef __GLIBC__
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
#else
    return 0;
#endif
}

}  // namespace bench
