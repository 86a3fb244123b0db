#pragma once

#include "equipment/ui/RecordPage.h"

class QLabel;

/// Free notes about a machine.
class NotesPage final : public RecordPage
{
    Q_OBJECT

public:
    explicit NotesPage(MachineFrame &frame, QWidget *parent = nullptr);
};

/// The ten fields that the customer names himself.
class UserFieldsPage final : public RecordPage
{
    Q_OBJECT

public:
    explicit UserFieldsPage(MachineFrame &frame, QWidget *parent = nullptr);

private:
    /// Shows a field's caption as the customer set it; one that he left blank keeps its number.
    static void DisplayUserDefinedName(int number, QLabel &label, QLineEdit &box);
};
