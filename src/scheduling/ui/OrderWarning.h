#pragma once

/// Questions before a change to a service that already stands on an open order, which keeps what it
/// took from the service. True when the change is to be made.
namespace orderwarning {

/// Of a changed next date, wherever it was changed.
[[nodiscard]] bool confirmDate();
/// Of the service screen.
[[nodiscard]] bool confirmCount();
/// Of the machine's grid of services, where the question reads differently.
[[nodiscard]] bool confirmCountInGrid();

} // namespace orderwarning
