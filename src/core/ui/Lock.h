#pragma once

class QWidget;

/// Locks a control, so that its content can be read, selected and copied but not changed, or opens
/// it again. Text stays readable: only what can't be made read-only is disabled.
void setLocked(QWidget *control, bool locked);
