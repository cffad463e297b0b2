#pragma once

#include "platform/forms/ControlTypes.h"

#include <map>
#include <vector>

class QTableView;

// A grid with a header: MSFlexGrid, DBGrid, Grid. The caption lists the columns' captions, each followed by "|", the value the
// columns' widths in twips, each followed by ";". A list with fewer pieces than columns sets only those.
// Ctrl+C copies the selected rows, or the current one where none can be selected: a line for each, with the cells as they are
// shown and a tab between two.
class GridControl : public WidgetControl
{
public:
    GridControl(ControlId id, QTableView &view);
    std::optional<QString> Caption() const override;
    void SetCaption(const QString &text) override;
    std::optional<QString> Value() const override;
    void SetValue(const QString &text) override;

    // A column whose content can't be cut, such as a time, is never shown narrower when the window opens, however narrow it was
    // stored with a smaller font.
    void SetLeastWidth(int column, int pixels);

private:
    struct Width
    {
        double twips = 0;
        int pixels = 0; // what they came to
    };

    int Columns() const;
    bool IsStretched(int column) const;

    QTableView &view_;
    std::map<int, int> leastWidths_;           // pixels, by column
    std::vector<std::optional<Width>> widths_; // as they were set; a column's stays until its pixels change
};
