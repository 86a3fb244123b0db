#pragma once

#include "platform/mail/Mail.h"

class QWidget;

/// What leaves the program by mail or for the makers' store of errors, with its steps shown.
namespace mailing {

/// Sends a message by an account, on a thread of its own under a window with the steps. Raises
/// base::Error in the user's words, and base::Cancelled.
void sendShown(const QString &title, const mail::Account &account, const mail::Message &message,
               QWidget *parent = nullptr);
/// Asks to whom a report that was written as a PDF file is to go and sends it by the company's
/// account; without one shows the file's folder and opens the user's own mail program. Failures are
/// told.
void mailDocument(const QString &pdf);

} // namespace mailing

/// Lets error reports go to the makers: rows to their store and mails to their mailbox, each where
/// it is set up. The mailbox is the install value "ReportMailbox" of the maker, several parted by
/// ";".
void joinReportTransport();
