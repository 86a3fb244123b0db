#pragma once

#include "platform/base/Steps.h"

#include <QByteArray>
#include <QString>

namespace web {

/// True for an address of the web, http or https with a host: the only ones that are fetched or
/// opened.
[[nodiscard]] bool isWebAddress(const QString &address);

struct FetchLimits
{
    qint64 bytes = 1 << 20;
    int seconds = 20; ///< for the whole answer
};

/// What stands at an address of the web. Follows redirects to other addresses of the web. Waits;
/// meant for a thread of its own. Raises base::Error InvalidCall in the user's words: an address of
/// another kind, no answer in time, an error of the server, an answer longer than the limit; and
/// base::Cancelled.
[[nodiscard]] QByteArray fetch(const QString &address, const base::Steps &steps = {},
                               FetchLimits limits = {});

} // namespace web
