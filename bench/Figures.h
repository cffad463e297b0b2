#pragma once

#include <QString>

#include <vector>

double Median(std::vector<double> values); // of at least one

// The table of figures on standard output. A figure that is over its limit is marked, and counted; one
// that is not a number was not measured.
class Figures
{
public:
    // A figure that may be at most `limit` times its floor.
    void AddRatio(const QString &what, double floor, double measured, const QString &unit, double limit);
    // A figure that may be at most `limit` above its floor.
    void AddDifference(const QString &what, double floor, double measured, const QString &unit, double limit);
    // A figure with a limit of its own; the floor is there to compare.
    void AddValue(const QString &what, double floor, double measured, const QString &unit, double limit);

    int OverLimit() const { return overLimit_; }

private:
    void Print(const QString &what, double floor, double measured, const QString &unit, const QString &result,
               bool holds);

    bool headed_ = false;
    int overLimit_ = 0;
};
