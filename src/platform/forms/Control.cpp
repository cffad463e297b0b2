#include "platform/forms/Control.h"

#include <utility>

Control::Control(QString name, std::optional<int> index, QString typeName)
    : name_(std::move(name)), index_(index), typeName_(std::move(typeName))
{
}

Control::~Control() = default;

QString Control::Key() const
{
    return index_ ? QStringLiteral("%1(%2)").arg(name_).arg(*index_) : name_;
}

void Control::TakeDesign(const QString &help)
{
    design_.caption = Caption().value_or(QString());
    design_.toolTip = ToolTip();
    design_.help = help;
    design_.tag = tag_;
    design_.value = Value().value_or(QString());
    design_.geometry = Place().value_or(Geometry());
    design_.visible = Visible().value_or(true);
}
