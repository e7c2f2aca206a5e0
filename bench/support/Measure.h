#pragma once

#include <functional>
#include <string>
#include <vector>

/// Timing for the benchmarks: medians of interleaved repetitions, because other work on the machine comes and
/// goes and a ratio within one run is all that can be compared. Times are processor time, which leaves out
/// what the machine does in between; the work measured here never waits for anything else.
namespace bench {

double medianOf(std::vector<double> values);

/// Processor time of one call in milliseconds.
double millisecondsOf(const std::function<void()>& work);

/// Medians of both, and the median of the ratios of each pair of neighbours in time.
struct Comparison {
    double measured = 0;
    double baseline = 0;
    double ratio = 0;
};
Comparison compare(int repetitions, const std::function<void()>& measured,
                   const std::function<void()>& baseline);

double medianMilliseconds(int repetitions, const std::function<void()>& work);

/// A table in the form that docs/performance.md holds.
class Table {
  public:
    explicit Table(std::vector<std::string> headings);
    void add(std::vector<std::string> cells);
    void print() const;

  private:
    std::vector<std::vector<std::string>> rows_;
};

/// "12.3"
std::string number(double value, int places = 1);

/// Bytes on the heap, or 0 where the system does not tell.
std::size_t heapBytes();

}  // namespace bench
