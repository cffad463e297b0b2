#include "reports/Csv.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace {

QString NumberField(const std::optional<double> &hours)
{
    return hours ? QString::number(ExactHours(*hours), 'f', QLocale::FloatingPointShortest) : QString();
}

QString DateField(const QDate &date)
{
    return date.toString(Qt::ISODate);
}

QString TimeField(const std::optional<QDateTime> &time)
{
    return time ? DateField(time->date()) + u'T' + time->time().toString(Qt::ISODate) : QString();
}

QString Quoted(QString field)
{
    const bool plain = field.isEmpty()
                       || (!field.contains(u',') && !field.contains(u'"') && !field.contains(u'\r')
                           && !field.contains(u'\n') && !field.front().isSpace() && !field.back().isSpace());
    return plain ? field : u'"' + field.replace(u'"', u"\"\""_s) + u'"';
}

class CsvTable
{
public:
    explicit CsvTable(const QStringList &names) : text_(QChar(QChar::ByteOrderMark)) { AddLine(names); }

    void AddLine(const QStringList &fields)
    {
        for (qsizetype i = 0; i < fields.size(); ++i)
            text_ += (i > 0 ? u","_s : QString()) + Quoted(fields.at(i));
        text_ += u"\r\n"_s;
    }
    QByteArray Utf8() const { return text_.toUtf8(); }

private:
    QString text_;
};

} // namespace

QByteArray SummaryCsv(const Summary &summary)
{
    const bool perDay = summary.kind == SummaryKind::PerDay;
    const auto withDay = [perDay](const QString &day, const QStringList &fields) {
        return perDay ? QStringList(day) + fields : fields;
    };
    CsvTable table(withDay(u"Day"_s, {u"JobID"_s, u"Hours"_s, u"Rounded"_s, u"JobName"_s}));
    for (const SummaryRow &row : summary.rows) {
        table.AddLine(
            withDay(DateField(row.day), {row.jobID, NumberField(row.hours), NumberField(row.rounded), row.jobName}));
    }
    return table.Utf8();
}

QByteArray TimeRowsCsv(const QList<RawTimeRow> &rows)
{
    CsvTable table({u"JobID"_s, u"JobName"_s, u"StempInTime"_s, u"StempOutTime"_s});
    for (const RawTimeRow &row : rows)
        table.AddLine({row.jobID, row.jobName, TimeField(row.stempInTime), TimeField(row.stempOutTime)});
    return table.Utf8();
}
