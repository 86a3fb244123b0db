#pragma once

#include "equipment/ui/RecordPage.h"

class QLabel;

/// Free notes about a machine.
class NotesPage final : public RecordPage
{
    Q_OBJECT

public:
    explicit NotesPage(EquipmentFrame &frame, QWidget *parent = nullptr);
};

/// The ten fields that the customer names himself.
class UserFieldsPage final : public RecordPage
{
    Q_OBJECT

public:
    explicit UserFieldsPage(EquipmentFrame &frame, QWidget *parent = nullptr);

private:
    /// Shows a field's caption as the customer set it; one that he left blank keeps its number.
    static void DisplayUserDefinedName(int number, QLabel &label, QLineEdit &box);
};
