#pragma once

#include "customui/ZRHoverButton2.h"

// A hover button that can be on. A click leaves the state alone: it is set by whoever the action is for.
class ZRCheckHoverButton : public ZRHoverButton2 {
    Q_OBJECT

public:
    using ZRHoverButton2::ZRHoverButton2;

    bool state() const { return m_state; }
    virtual void setState(bool isOn);
    // The picture while the button is on, whatever the pointer does; see setImage().
    void setCheckOnImage(const QString& name);

protected:
    QString shownImage() const override;

private:
    QString m_checkOnImage;
    bool m_state = false;
};
