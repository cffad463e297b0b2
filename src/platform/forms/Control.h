#pragma once

#include "platform/forms/Geometry.h"

#include <QString>

#include <optional>

class QWidget;

// What a control was shipped with, in English. The source of a new row's texts, of the look-up of the Danish ones and of the
// way back to the shipped layout; never changed after the form was set up.
struct ControlDesign
{
    QString caption;
    QString toolTip;
    QString help;
    QString tag;
    QString value;
    Geometry geometry;
    bool visible = true;
};

// The adapter through which the text store, the editor and the shared keys see any control of a form. What caption and value
// mean is the business of each type (ControlTypes.h). The base is a control that has none of it, such as a timer.
class Control
{
public:
    Control(QString name, std::optional<int> index, QString typeName);
    virtual ~Control();
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;

    const QString &Name() const { return name_; }
    std::optional<int> Index() const { return index_; }   // the index of a control array's member
    QString Key() const;                                  // Name, or Name(Index)
    const QString &TypeName() const { return typeName_; } // "Label", "TextBox", "OptionButton", …

    virtual QWidget *Widget() const { return nullptr; } // nothing for menus, timers, data controls and file dialogs

    // Nothing: the type has no such property, and the store leaves the column alone.
    virtual std::optional<QString> Caption() const { return std::nullopt; }
    virtual void SetCaption(const QString &) {}
    virtual std::optional<QString> Value() const { return std::nullopt; }
    virtual void SetValue(const QString &) {}
    virtual std::optional<Geometry> Place() const { return std::nullopt; } // relative to its container, twips
    virtual void SetPlace(const Geometry &) {}
    virtual std::optional<bool> Visible() const { return std::nullopt; } // its own flag, whatever its container's is
    virtual void SetVisible(bool) {}
    virtual bool HasToolTip() const { return false; }
    virtual QString ToolTip() const { return {}; } // plain text
    virtual void SetToolTip(const QString &) {}

    const QString &Tag() const { return tag_; }
    void SetTag(const QString &tag) { tag_ = tag; }

    const ControlDesign &Design() const { return design_; }
    void TakeDesign(const QString &help); // takes the present state as the design

private:
    QString name_;
    std::optional<int> index_;
    QString typeName_;
    QString tag_;
    ControlDesign design_;
};
