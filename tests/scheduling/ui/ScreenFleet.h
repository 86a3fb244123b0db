#pragma once

#include "core/ui/Joints.h"
#include "core/ui/Screen.h"
#include "core/ui/ScreenDriver.h"
#include "scheduling/Fleet.h"

#include <memory>

namespace test {

/// A form that is open for its user: worked as a screen, asked as the form that it is.
template<class Form>
class Opened : public ScreenDriver
{
public:
    explicit Opened(const std::shared_ptr<Form> &form)
        : ScreenDriver(*form)
        , m_form(form)
    {
        bringUp(*form);
    }
    Form *operator->() const { return m_form.get(); }
    /// Presses Save by its key, which takes the moment in which the button shows itself pressed.
    void saveByKey() const
    {
        QTest::keyClick(m_form->focusWidget(), Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_form->mode() == Mode::Browse; }, 2000));
    }

private:
    std::shared_ptr<Form> m_form;
};

/// The company with a user who may do everything.
struct ScreenFleet : Fleet
{
    ScreenFleet()
    {
        gRights.SerAdd = gRights.SerMod = gRights.SerDel = true;
        machine(1);
    }

    static void putOnOrder(qint64 service, const QString &period = QStringLiteral("D"))
    {
        insert(QStringLiteral("tblWoServiceUsed"), {{QStringLiteral("ServiceUsedID"), service},
                                                    {QStringLiteral("EquipmentID"), 1},
                                                    {QStringLiteral("Period"), period}});
    }

    Joints joints;
};

} // namespace test
