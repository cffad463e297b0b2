#pragma once

#include "board/Board.h"
#include "board/BoardModel.h"
#include "platform/forms/Form.h"

#include <QIcon>

#include <memory>

namespace Ui {
class MessageBoard;
}

// The board of all users. A person who closes it only minimises it, so that what it shows survives; the program unloads it.
// The grid covers its surface, so it is dragged by the room below the rows.
class MessageBoard : public Form
{
    Q_OBJECT

public:
    explicit MessageBoard(FormServices &services);
    ~MessageBoard() override;

    // Shows these rows. The current cell stays on its user, and the scroll place where it is, also when users come and go.
    void ShowRows(const std::vector<Board::Row> &rows, const QDateTime &now);
    void ScrollTo(int row);          // as little as makes it seen
    void ShowAlertIcon(bool yellow); // else the quiet picture

    // Shows the board without taking the keys from another window. One that is minimised stays so unless `restore` is set,
    // which also brings it before the other windows.
    void PopUp(bool restore);

signals:
    // A cell was clicked, or Enter or Space pressed on it. Row -1 is the header.
    void UserGridClicked(int row, int column);
    void DeletePressed(const QString &name); // on a user's name

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    bool Form_KeyDown(QKeyEvent &event) override;
    void QueryUnload() override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void SetUpGrid();
    void Arrange(QSize surface);

    std::unique_ptr<Ui::MessageBoard> ui_;
    BoardModel model_;
    QIcon iconYell_;
    QIcon iconYellNot_;
    bool isPressedBelowRows_ = false;
};
