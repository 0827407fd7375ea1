#pragma once
// Timing and memory readings for the benchmark program.

#include <QString>
#include <functional>
#include <vector>

namespace bench {

// Runs `work` `repeats` times (with `prepare` before each run, not timed) and gives the
// median time in milliseconds.
double MedianMs(int repeats, const std::function<void()>& work,
                const std::function<void()>& prepare = {});

double Median(std::vector<double> values);

// Resident memory of this process in MiB, or a negative number where it cannot be read.
double ResidentMiB();

// One row of the report: what was measured, the figure, the floor and the target.
struct Row {
    QString work;
    double figure = 0;
    QString unit;
    double floor = 0;      // 0: a bound, not a ratio
    double maxRatio = 0;   // target as a ratio to the floor, 0 if none
    double maxFigure = 0;  // target as a bound, 0 if none
    // A row without a target shows a figure for comparison only.
    bool target() const { return maxRatio > 0 || maxFigure > 0; }
    bool met() const;
};

void Print(const std::vector<Row>& rows);

}  // namespace bench
