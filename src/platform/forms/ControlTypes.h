#pragma once

#include "platform/forms/Control.h"

#include <QStringList>

#include <utility>

class ChartWidget;
class LineWidget;
class QAbstractButton;
class QAction;
class QComboBox;
class QDateTimeEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;
class QScrollBar;
class QTabWidget;

// What makes a control itself: see Control.
struct ControlId
{
    QString name;
    std::optional<int> index;
    QString typeName;
};

// Numbers as the store keeps them, with a decimal point whatever the locale.
QString NumberText(double number);
std::optional<double> NumberIn(const QString &text);

// The items of a list that are each followed by the separator; the last separator may be missing.
QStringList PiecesOf(const QString &list, QChar separator);

// Tool tips are people's texts: one that looks like markup is shown as it is written.
QString AsPlainToolTip(const QString &text);

// A control that a widget stands for: place, visibility and tool tip. By itself a picture or a list box, which have no more.
// The widget outlives it.
class WidgetControl : public Control
{
public:
    WidgetControl(ControlId id, QWidget &widget);

    QWidget *Widget() const override { return &widget_; }
    std::optional<Geometry> Place() const override;
    void SetPlace(const Geometry &twips) override;
    std::optional<bool> Visible() const override;
    void SetVisible(bool visible) override;
    bool HasToolTip() const override { return true; }
    QString ToolTip() const override { return toolTip_; }
    void SetToolTip(const QString &text) override;

private:
    QWidget &widget_;
    QString toolTip_;
    // The numbers that were set last, which stay as they are while the widget is where they put it.
    std::optional<Geometry> placed_;
    Geometry placedTwips_;
};

class LabelControl : public WidgetControl // Label, SSPanel
{
public:
    LabelControl(ControlId id, QLabel &label);
    std::optional<QString> Caption() const override;
    void SetCaption(const QString &text) override;

private:
    QLabel &label_;
};

class ButtonControl : public WidgetControl // CommandButton; with a value: CheckBox, SSCheck
{
public:
    ButtonControl(ControlId id, QAbstractButton &button);
    std::optional<QString> Caption() const override;
    void SetCaption(const QString &text) override;
    std::optional<QString> Value() const override; // "1" and "0"
    void SetValue(const QString &text) override;

private:
    QAbstractButton &button_;
};

class OptionButtonControl : public ButtonControl
{
public:
    OptionButtonControl(ControlId id, QRadioButton &button);
    std::optional<QString> Value() const override; // "-1" and "0"
    void SetValue(const QString &text) override;   // selecting one clears the others of its container

private:
    QRadioButton &button_;
};

class FrameControl : public WidgetControl
{
public:
    FrameControl(ControlId id, QGroupBox &box);
    std::optional<QString> Caption() const override;
    void SetCaption(const QString &text) override;

private:
    QGroupBox &box_;
};

class TextBoxControl : public WidgetControl
{
public:
    TextBoxControl(ControlId id, QLineEdit &edit);
    std::optional<QString> Value() const override;
    void SetValue(const QString &text) override;

private:
    QLineEdit &edit_;
};

class MultiLineControl : public WidgetControl // a TextBox too
{
public:
    MultiLineControl(ControlId id, QPlainTextEdit &edit);
    std::optional<QString> Value() const override;
    void SetValue(const QString &text) override;

private:
    QPlainTextEdit &edit_;
};

class ComboBoxControl : public WidgetControl // ComboBox; DriveListBox and DirListBox, whose value is a path
{
public:
    ComboBoxControl(ControlId id, QComboBox &box);
    std::optional<QString> Value() const override;
    void SetValue(const QString &text) override; // of a box without typing: only what is in the list

private:
    QComboBox &box_;
};

class ScrollBarControl : public WidgetControl
{
public:
    ScrollBarControl(ControlId id, QScrollBar &bar);
    void SetValue(const QString &text) override; // never read back: it is a place in a content

private:
    QScrollBar &bar_;
};

class TabControl : public WidgetControl // SSTab; the caption lists the tabs', each followed by "|"
{
public:
    TabControl(ControlId id, QTabWidget &tabs);
    std::optional<QString> Caption() const override;
    void SetCaption(const QString &text) override;

private:
    QTabWidget &tabs_;
};

class DatePickerControl : public WidgetControl // DTPicker
{
public:
    DatePickerControl(ControlId id, QDateTimeEdit &edit);
    std::optional<QString> Value() const override; // the day's number since 30 December 1899
    void SetValue(const QString &text) override;

private:
    QDateTimeEdit &edit_;
};

class LineControl : public WidgetControl
{
public:
    LineControl(ControlId id, LineWidget &line);
    std::optional<Geometry> Place() const override; // the end points: left, top the one, width, height the other
    void SetPlace(const Geometry &twips) override;
    std::optional<QString> Value() const override; // its colour, red in the lowest byte
    void SetValue(const QString &text) override;

private:
    Geometry EndsInTwips() const;

    LineWidget &line_;
    std::optional<Geometry> placed_;
    Geometry placedTwips_;
};

class ChartControl : public WidgetControl // MSChart; the caption is its title
{
public:
    ChartControl(ControlId id, ChartWidget &chart);
    std::optional<QString> Caption() const override;
    void SetCaption(const QString &text) override;

private:
    ChartWidget &chart_;
};

class MenuControl : public Control
{
public:
    MenuControl(ControlId id, QAction &action);
    QAction &Action() const { return action_; }
    std::optional<QString> Caption() const override;
    void SetCaption(const QString &text) override;
    std::optional<bool> Visible() const override;
    void SetVisible(bool visible) override;
    bool HasToolTip() const override { return true; }
    QString ToolTip() const override { return toolTip_; }
    void SetToolTip(const QString &text) override;

private:
    QAction &action_;
    QString toolTip_;
};

// What a grid is bound to: a file and a query text. It has no rows of its own.
class DataControl : public Control
{
public:
    explicit DataControl(QString name) : Control(std::move(name), std::nullopt, QStringLiteral("Data")) {}

    QString DatabaseName;
    QString RecordSource;
};
