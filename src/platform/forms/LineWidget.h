#pragma once

#include <QColor>
#include <QWidget>

// A straight line on a form, for .ui files to promote a widget to. Until it is given end points, it runs through the middle of
// its rectangle, along the longer side.
class LineWidget : public QWidget
{
    Q_OBJECT

public:
    explicit LineWidget(QWidget *parent = nullptr);

    QPoint Start() const; // end points in the parent's coordinates
    QPoint End() const;
    void SetEnds(QPoint start, QPoint end);

    QColor BorderColor() const { return color_; }
    void SetBorderColor(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool hasEnds_ = false;
    bool startsRight_ = false; // where in the rectangle the line starts
    bool startsBelow_ = false;
    QColor color_;
};
