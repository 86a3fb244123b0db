#pragma once

#include <QtGlobal>

/// What the lists of the recording page, each in a box of its own, ask of the page around them.
class RecordFrame
{
public:
    struct Order
    {
        qint64 WorkorderNo = 0; ///< 0 while there is none
        qint64 EquipmentID = 0;
        bool isComplete = false;
    };

    virtual ~RecordFrame() = default;

    [[nodiscard]] virtual Order currentOrder() const = 0;
    /// Stores what is being edited on the page; False when it is refused.
    [[nodiscard]] virtual bool finishEditing() = 0;
    /// After a refused change: what another workstation has taken away goes from the lists.
    virtual void showWhatIsLeft() = 0;
    /// A service of the current order changed, which is complete no longer then.
    virtual void showOrderReopened() = 0;
};
