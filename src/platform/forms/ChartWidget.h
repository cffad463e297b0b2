#pragma once

#include <QList>
#include <QString>
#include <QWidget>

class QHelpEvent;
class QPainter;

// Bars over a scale of hours, with a title: for .ui files to promote a widget to. Drawn in one colour with the values beside or
// above the bars, so that nothing is told by colour alone; follows the palette and the font. Screen readers get the title for
// a name and the bars' values for a description.
class ChartWidget : public QWidget
{
    Q_OBJECT
    // In a .ui file with stdset="0".
    Q_PROPERTY(QString TitleText READ TitleText WRITE SetTitleText)
    Q_PROPERTY(QString EmptyText READ EmptyText WRITE SetEmptyText)

public:
    struct Bar
    {
        QString label;
        QString tip;
        double value = 0;
        bool isRest = false; // of rows: all that had no room, told by its value only, as its bar would dwarf the others
    };
    enum class Layout {
        Rows,   // bars lie under one another, labels on the left: for names
        Columns // bars stand side by side, labels below, left out where they would touch: for days
    };

    explicit ChartWidget(QWidget *parent = nullptr);

    QString TitleText() const { return title_; }
    void SetTitleText(const QString &title);
    void SetBars(QList<Bar> bars, Layout layout); // of more than MostBars, as many are shown as there is room for
    QString EmptyText() const { return emptyText_; }
    void SetEmptyText(const QString &text); // shown while there are no bars
    const QList<Bar> &Bars() const { return bars_; }
    int MostBars(Layout layout) const; // how many can be told apart at the present size, at least one

signals:
    void Resized(); // MostBars may be another one

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override; // a tip at each bar

private:
    struct Plan;

    QRect Area() const; // below the title
    Plan MakePlan() const;
    Plan RowsPlan() const;
    Plan ColumnsPlan() const;
    void PaintScale(QPainter &painter, const Plan &plan) const;
    void PaintRow(QPainter &painter, const Plan &plan, int at) const;
    void PaintColumn(QPainter &painter, const Plan &plan, int at) const;
    bool ShowTip(const QHelpEvent &event);
    void Describe();

    QString title_;
    QString emptyText_;
    QList<Bar> bars_;
    Layout layout_ = Layout::Rows;
};
