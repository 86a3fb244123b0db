#pragma once

#include "platform/base/Steps.h"

#include <QElapsedTimer>
#include <QString>
#include <curl/curl.h>
#include <memory>

/// The network library's handles as owned values. Included by sources of the platform only.
namespace web {

struct CurlDeleter
{
    void operator()(CURL *handle) const { curl_easy_cleanup(handle); }
    void operator()(curl_slist *list) const { curl_slist_free_all(list); }
    void operator()(curl_mime *mime) const { curl_mime_free(mime); }
};
using Curl = std::unique_ptr<CURL, CurlDeleter>;
using CurlList = std::unique_ptr<curl_slist, CurlDeleter>;
using CurlMime = std::unique_ptr<curl_mime, CurlDeleter>;

/// A transfer's handle with what all transfers share: no signals, and no login taken from files of
/// the computer. Raises base::Error.
[[nodiscard]] Curl makeTransfer();
/// Adds a line to a list.
void append(CurlList &list, const QByteArray &line);

/// Ends a transfer when its user cancels it, or when nothing has moved for a time.
class Watch
{
public:
    /// limit: seconds.
    Watch(const base::Steps &steps, int limit);
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    /// Lets the transfer ask this watch, which has to outlive it.
    void over(CURL *transfer);
    /// Something has come in.
    void moved() { m_quiet.restart(); }
    /// True when nothing has moved for longer than the limit, for which the transfer was ended.
    [[nodiscard]] bool isStalled() const { return m_stalled; }

private:
    static int asked(void *watch, curl_off_t, curl_off_t received, curl_off_t, curl_off_t sent);

    const base::Steps &m_steps;
    qint64 m_limit; ///< milliseconds
    QElapsedTimer m_quiet;
    curl_off_t m_count = 0;
    bool m_stalled = false;
};

} // namespace web
