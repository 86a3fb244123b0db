#include "reporting/ui/frmWorkorderhistoryReport.h"

#include "platform/input/FormBuilder.h"
#include "platform/input/KeyFilter.h"

#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

frmWorkorderhistoryReport::frmWorkorderhistoryReport(QWidget *parent)
    : FilterScreen(u"frmWorkorderhistoryReport"_s, u"Work Order History"_s,
                   "frmWorkorderhistoryReport", parent)
{
    input::FormBuilder form(this);
    beginFields(form, u"List of Work Order History"_s, u"fraWorkorderHistory"_s);
    txtSHUnitNo =
        valueField(form, {u"txtSHUnitNo"_s, u"&Unit #"_s, u"cmdSHUnitNo"_s, picklists::units()});
    txtWo = typedField(form, {u"txtWo"_s, u"&Work Order #"_s, u"Examples: Blank = 1, 21, 1-11"_s});
    // Numbers, parted by commas, and ranges of them: the text becomes part of the clause by way of
    // a reader that takes nothing else.
    input::restrictTo(txtWo, input::TypeCheck::Int, u",-"_s);
    optsummary = options(form, u"Report"_s,
                         {{u"optdetail"_s, u"By &Detail Work Order"_s},
                          {u"optsummary"_s, u"By &Summary of Work Order"_s}})
                     .last();
    endFields(form);
}

std::optional<catalogue::Request> frmWorkorderhistoryReport::request() const
{
    return filters::request(filters::WorkorderHistory{.units = txtSHUnitNo->text(),
                                                      .numbers = txtWo->text(),
                                                      .summary = optsummary->isChecked()});
}
