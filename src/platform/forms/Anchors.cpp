#include "platform/forms/Anchors.h"

#include "platform/forms/Form.h"

namespace {

// A function of the two sizes alone. Shares that are one together leave no pixel between two controls.
int Growth(int from, int to, double share)
{
    return qRound(to * share) - qRound(from * share);
}

} // namespace

Anchors::Anchors(Form &form) : form_(form) {}

void Anchors::Add(std::initializer_list<QWidget *> controls, const Share &share)
{
    for (QWidget *control : controls)
        anchors_.push_back({control, share, {}, {}});
}

void Anchors::Follow()
{
    if (form_.IsSettled()) {
        FitTo(form_.size() - QSize(0, form_.NoticeHeight()));
        cutTaken_ = {0, 0};
        return;
    }
    UndoCut(); // the frame may have become known, and with it the size that is stored
    const QSize size = form_.size() - QSize(0, form_.LentHeight());
    uncut_ = size + form_.Cut();
    fitted_ = uncut_;
    FitTo(size);
    cutTaken_ = form_.Cut();
}

void Anchors::UndoCut()
{
    if (cutTaken_ == QSize(0, 0))
        return;
    fitted_ = uncut_ - cutTaken_;
    FitTo(uncut_);
    cutTaken_ = {0, 0};
}

void Anchors::PutBack()
{
    if (form_.IsSettled())
        FitTo(form_.NormalSize());
    else
        UndoCut();
}

void Anchors::FitTo(QSize size)
{
    const auto wider = [&](double share) { return Growth(fitted_.width(), size.width(), share); };
    const auto higher = [&](double share) { return Growth(fitted_.height(), size.height(), share); };
    for (Anchor &anchor : anchors_) {
        const Share &share = anchor.share;
        if (anchor.control->geometry() != anchor.taken) // somebody moved it
            anchor.wanted = anchor.control->geometry();
        anchor.wanted.adjust(wider(share.x), higher(share.y), wider(share.x + share.width),
                             higher(share.y + share.height));
        anchor.control->setGeometry(anchor.wanted);
        anchor.taken = anchor.control->geometry();
    }
    fitted_ = size;
}
