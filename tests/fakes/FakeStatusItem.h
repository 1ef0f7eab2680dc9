#pragma once

#include "VeskoApp/platform/StatusItem.h"

namespace vesko {

class FakeStatusItem final : public StatusItem {
public:
    QIcon icon;
    QString toolTip;
    QString captureTitle;
    bool captureEnabled = false;
    bool isVisible = true;

    void show(const QIcon& shown, const QString& tip) override
    {
        icon = shown;
        toolTip = tip;
    }
    void setCapture(const QString& title, bool enabled) override
    {
        captureTitle = title;
        captureEnabled = enabled;
    }
    bool visible() const override { return isVisible; }
};

} // namespace vesko
