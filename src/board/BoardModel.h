#pragma once

#include "board/Board.h"
#include "platform/forms/CaptionedModel.h"

#include <QDateTime>
#include <QIcon>

#include <vector>

// The rows of the board for a grid to show: the name in the colour of the person's state, with a mark that tells the state
// without colours; beside it the comment, or a message in yellow. Tips and accessible texts say the same in words.
class BoardModel : public CaptionedModel
{
    Q_OBJECT

public:
    static constexpr int nameColumn = 0; // holds the bare name
    static constexpr int statusColumn = 1;

    enum Role {
        WorkRole = Qt::UserRole + 1, // of the status column: the job of one who is stemped in
        WaitingRole                  // of the status column: how many messages wait behind the one that is shown
    };

    explicit BoardModel(QStringList captions, QObject *parent = nullptr);

    // Views are told of the rows that look different now; with other names than before, the model is reset. `now` tells from
    // whom nothing was heard for long.
    void SetRows(const std::vector<Board::Row> &rows, const QDateTime &now);
    const std::vector<Board::Row> &Rows() const { return rows_; }
    int RowOf(const QString &name) const; // in any case; -1 when there is none

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    QVariant NameData(const Board::Row &row, int role) const;
    QVariant StatusData(const Board::Row &row, int role) const;
    QStringList StateInWords(const Board::Row &row) const;
    QString InSince(const Presence::Work &work) const;

    std::vector<Board::Row> rows_;
    QDateTime now_;
    QIcon inMark_;
    QIcon outMark_;
    QIcon offMark_;
    QIcon messageMark_;
};
