// The arrows of a spin button, as its class and the dialog see them. For the sources of this room only.
#pragma once

#include "platform/base/FrameworkTypes.h"

class QWidget;

class SpinArrows {
public:
    // Null when the window is no spin button.
    static SpinArrows* Of(HWND window);

    virtual ~SpinArrows() = default;
    virtual void SetRange(int lower, int upper) = 0;
    virtual void GetRange(int& lower, int& upper) const = 0;
    virtual int SetPos(int position) = 0;
    virtual int GetPos() const = 0;
    virtual void SetBuddy(QWidget* buddy) = 0;
    virtual QWidget* GetBuddy() const = 0;
};
