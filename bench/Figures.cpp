#include "bench/Figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void Figures::AddRatio(const QString &what, double floor, double measured, const QString &unit, double limit)
{
    const double ratio = measured / floor;
    Print(what, floor, measured, unit, u"%1 times, at most %2"_s.arg(ratio, 0, 'f', 2).arg(limit), ratio <= limit);
}

void Figures::AddDifference(const QString &what, double floor, double measured, const QString &unit, double limit)
{
    const double more = measured - floor;
    Print(what, floor, measured, unit, u"%1 %2 more, at most %3"_s.arg(more, 0, 'f', 1).arg(unit).arg(limit),
          more <= limit);
}

void Figures::AddValue(const QString &what, double floor, double measured, const QString &unit, double limit)
{
    Print(what, floor, measured, unit, u"at most %1 %2"_s.arg(limit).arg(unit), measured <= limit);
}

void Figures::Print(const QString &what, double floor, double measured, const QString &unit, const QString &result,
                    bool holds)
{
    if (std::isnan(floor) || std::isnan(measured)) {
        std::printf("%-44s not measured\n", what.toUtf8().constData());
        return;
    }
    if (!headed_) {
        headed_ = true;
        std::printf("%-44s %12s %12s\n", "", "floor", "measured");
    }
    const auto withUnit = [&unit](double value) { return (QString::number(value, 'f', 2) + u' ' + unit).toUtf8(); };
    std::printf("%-44s %12s %12s  %s%s\n", what.toUtf8().constData(), withUnit(floor).constData(),
                withUnit(measured).constData(), result.toUtf8().constData(), holds ? "" : "  <-- OVER");
    std::fflush(stdout);
    if (!holds)
        ++overLimit_;
}
