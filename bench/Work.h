#pragma once

#include "bench/Figures.h"

#include <chrono>
#include <limits>
#include <map>
#include <string>

// What the benchmarks of this program share.

QString BenchFolder(); // a folder on a real disk, empty at first

class Stopwatch
{
public:
    double Seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count(); }

private:
    const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

// The median of the rounds of each benchmark, by the benchmark's name.
class Medians
{
public:
    void Set(const std::string &name, double milliseconds) { medians_[name] = milliseconds; }
    double Milliseconds(const std::string &name) const // not a number when it was not run
    {
        const auto found = medians_.find(name);
        return found == medians_.end() ? std::numeric_limits<double>::quiet_NaN() : found->second;
    }

private:
    std::map<std::string, double> medians_;
};

// Each adds the figures of its own benchmarks.
void AddStempFigures(Figures &figures, const Medians &medians);
void AddSearchFigures(Figures &figures, const Medians &medians);
void AddSummaryWindowFigures(Figures &figures, const Medians &medians);
