#pragma once

#include <QString>

class QWidget;

/// What a save still lacks: the field to go on in, and the sentence that says so.
struct Gap
{
    QWidget *field;
    QString message;
};
