#pragma once

class QLineEdit;

/// True when the box holds an address to which the makers can answer; otherwise tells what is
/// missing and puts the focus there.
[[nodiscard]] bool VailidateFields(QLineEdit *sender);
