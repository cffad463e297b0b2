#include "board/BoardModel.h"

#include "platform/forms/ShownText.h"
#include "platform/system/Say.h"

#include <QColor>
#include <QFont>
#include <QLocale>
#include <QTextDocument>

#include <algorithm>
#include <chrono>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QRgb inColor = 0xffffffff;
constexpr QRgb outColor = 0xffe0e0e0;
constexpr QRgb offColor = 0xff808080;
constexpr QRgb messageColor = 0xffffff00;

// A copy gives no sign while a dialog of its board is open.
constexpr std::chrono::milliseconds longSilence = 3 * Presence::signPeriod;

// The one for the state, as Presence::UserRow has it.
template <class T> T OfState(int state, T in, T out, T off)
{
    return state < 0 ? in : state > 0 ? off : out;
}

const QString &StatusText(const Board::Row &row)
{
    return row.message ? row.message->message : row.comment;
}

// Tips are told when they are asked for, so what only they show is left out.
bool LookAlike(const Board::Row &a, const Board::Row &b)
{
    return OfState(a.state, -1, 0, 1) == OfState(b.state, -1, 0, 1) && a.message.has_value() == b.message.has_value()
           && a.work == b.work && a.waiting == b.waiting && StatusText(a) == StatusText(b);
}

QString WaitingText(int waiting)
{
    return waiting == 1 ? Say("1 more message waits behind this one")
                        : Say("%1 more messages wait behind this one").arg(waiting);
}

// People's texts are no markup; as rich text a long one is wrapped.
QString AsTip(const QString &text)
{
    return text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

} // namespace

BoardModel::BoardModel(QStringList captions, QObject *parent)
    : CaptionedModel(std::move(captions), parent),
      inMark_(u":/icons/MarkIn.svg"_s),
      outMark_(u":/icons/MarkOut.svg"_s),
      offMark_(u":/icons/MarkOff.svg"_s),
      messageMark_(u":/icons/IconYellNot.svg"_s)
{
}

void BoardModel::SetRows(const std::vector<Board::Row> &rows, const QDateTime &now)
{
    now_ = now;
    const auto samePerson = [](const Board::Row &a, const Board::Row &b) {
        return a.name == b.name && a.isUser == b.isUser;
    };
    if (!std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(), samePerson)) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
        return;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool changed = !LookAlike(rows[i], rows_[i]);
        rows_[i] = rows[i];
        const int row = static_cast<int>(i);
        if (changed)
            emit dataChanged(index(row, nameColumn), index(row, statusColumn));
    }
}

int BoardModel::RowOf(const QString &name) const
{
    const auto found = std::find_if(rows_.begin(), rows_.end(),
                                    [&name](const Board::Row &row) { return Presence::SameName(row.name, name); });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

int BoardModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant BoardModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Board::Row &row = rows_[static_cast<std::size_t>(index.row())];
    return index.column() == nameColumn ? NameData(row, role) : StatusData(row, role);
}

QVariant BoardModel::NameData(const Board::Row &row, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return row.name;
    case Qt::DecorationRole:
        return row.isUser ? OfState(row.state, inMark_, outMark_, offMark_) : QVariant();
    case Qt::BackgroundRole:
        return row.isUser ? QColor(OfState(row.state, inColor, outColor, offColor)) : QVariant();
    case Qt::ForegroundRole:
        return row.isUser ? QColor(Qt::black) : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setItalic(!row.isUser);
        return font;
    }
    case Qt::ToolTipRole: {
        QStringList lines = StateInWords(row);
        if (!row.comment.isEmpty())
            lines.insert(2, ShownText(row.comment));
        return AsTip(lines.join(u'\n'));
    }
    case Qt::AccessibleTextRole:
        return StateInWords(row).join(u", "_s);
    default:
        return {};
    }
}

QVariant BoardModel::StatusData(const Board::Row &row, int role) const
{
    const bool yellow = row.message.has_value();
    const int waiting = yellow ? row.waiting : 0;
    switch (role) {
    case Qt::DisplayRole:
        return StatusText(row);
    case Qt::DecorationRole:
        return yellow ? messageMark_ : QVariant();
    case Qt::BackgroundRole:
        return yellow ? QColor(messageColor) : QVariant();
    case Qt::ForegroundRole:
        return yellow ? QColor(Qt::black) : QVariant();
    case Qt::ToolTipRole:
        return AsTip(waiting > 0 ? ShownText(StatusText(row)) + u'\n' + WaitingText(waiting)
                                 : ShownText(StatusText(row)));
    case Qt::AccessibleTextRole: {
        const QString text = (yellow ? Say("Message: ") : QString()) + ShownText(StatusText(row));
        return waiting > 0 ? QString(text + u", "_s + WaitingText(waiting)) : text;
    }
    case WorkRole:
        return row.work ? ShownText(row.work->job) : QString();
    case WaitingRole:
        return waiting;
    default:
        return {};
    }
}

// The name, the state, and since when nothing was heard of someone who should be there.
QStringList BoardModel::StateInWords(const Board::Row &row) const
{
    if (!row.isUser)
        return {ShownText(row.name), Say("Not among the users")};
    QStringList words{ShownText(row.name),
                      OfState(row.state, Say("Stemped in"), Say("Stemped out"), Say("Program closed"))};
    if (row.work)
        words[1] = InSince(*row.work);
    const bool isOff = row.state > 0;
    if (!isOff && row.lastSign && row.lastSign->msecsTo(now_) > longSilence.count())
        words.append(Say("Nothing heard since %1").arg(QLocale().toString(*row.lastSign, QLocale::ShortFormat)));
    return words;
}

QString BoardModel::InSince(const Presence::Work &work) const
{
    const QString job = ShownText(work.job);
    if (!work.since.isValid())
        return Say("Stemped in on %1").arg(job);
    const bool isToday = work.since.date() == now_.date();
    return Say("Stemped in since %1 on %2")
        .arg(QLocale().toString(work.since, isToday ? u"hh:mm"_s : u"d MMM hh:mm"_s), job);
}
