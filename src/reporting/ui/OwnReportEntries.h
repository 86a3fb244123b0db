#pragma once

#include <QString>

/// The screens and reports of the user's own layouts.

/// Shows the report in a layout file of the user's own, which reads for itself; what it asks for is
/// asked first. False when it did not come up, which the user knows then. A connection that only
/// reads.
bool ShowUserDefinedReport(const QString &path);

/// The list of the user's own reports, and the one that is chosen there or a new one.
void mnuViewUserReport_Click();
/// The list of layouts, and the designer on the one that is chosen there or on a new one.
void mnuModifyReport_Click();

/// Joins both, and the making of a new report, to the list of what can be opened.
void joinOwnReports();
