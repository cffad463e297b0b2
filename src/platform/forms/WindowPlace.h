#pragma once

#include "platform/forms/Geometry.h"

#include <QMargins>
#include <QObject>
#include <QTimer>
#include <QWidget>

#include <optional>

// Wayland lets no window place itself, nor lift itself above another.
bool SystemPlacesWindows();

// Keeps the stored place and size of a window, frame included, so that they never drift. What a window manager makes of a
// place and when it tells the width of the frame differs from one to the other; therefore a window is left to settle after it
// was shown, and only what changed from there on changes the stored numbers.
class WindowPlace : public QObject
{
    Q_OBJECT

public:
    explicit WindowPlace(QWidget &window);

    // A design knows the inside of its window alone, so its outer size is a guess. While it stands in the stored numbers, the
    // inside has the designed size.
    void SetDesign(const Geometry &outerTwips, QSize innerPixels);
    void SetStored(const Geometry &twips); // moves and resizes the window
    Geometry Stored() const;
    QSize NormalSize() const; // of the inside, that Stored() stands for once it is settled
    bool IsSettled() const { return baseline_.has_value(); } // since it was last shown or set

    // Makes the inside of a window in its normal state higher than what is stored for it, by so many pixels in all.
    void LendHeight(int pixels);
    int LentHeight() const { return lentHeight_; }

    // By how much the inside is smaller than what is stored for it, because the screen has no more room; while it is shown.
    QSize Cut() const { return cut_; }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void Settled();
    void WasCut(); // or is no longer, or by another size

private:
    Geometry StoredAt(const QRect &inner) const;
    QRect NormalPlace() const;
    QRect PlaceNow() const;
    bool IsNormal() const;
    void Apply();
    void ResizeInside();
    void FitToScreen();
    void BeginToSettle();
    void GoOnSettling();
    void See();

    QWidget &window_;
    Geometry stored_;
    Geometry design_;
    QSize designedInside_;
    std::optional<QMargins> margins_;
    bool frameIsTaken_ = false;     // since it was last shown
    std::optional<QRect> baseline_; // inner place and size that the stored numbers stand for
    QRect seen_;                    // the last ones in the normal window state
    int lentHeight_ = 0;            // counted in neither
    QSize cut_{0, 0};               // counted in both
    bool isShown_ = false;
    QTimer settling_;
    QTimer seeing_;
};
