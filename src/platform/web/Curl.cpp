#include "platform/web/Curl.h"

#include <new>

using namespace Qt::StringLiterals;

namespace web {

Curl makeTransfer()
{
    // Once in the process, whichever thread comes first.
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    Curl transfer(ready == CURLE_OK ? curl_easy_init() : nullptr);
    if (!transfer)
        throw base::Error(base::ErrorNumber::InvalidCall, u"The network can't be used."_s);
    // Signals are the whole program's, and a file of passwords in the user's home is none of its
    // business.
    curl_easy_setopt(transfer.get(), CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(transfer.get(), CURLOPT_NETRC, long{CURL_NETRC_IGNORED});
    return transfer;
}

void append(CurlList &list, const QByteArray &line)
{
    curl_slist *longer = curl_slist_append(list.get(), line.constData());
    if (!longer)
        throw std::bad_alloc();
    // The longer list begins with the old one.
    static_cast<void>(list.release());
    list.reset(longer);
}

Watch::Watch(const base::Steps &steps, int limit)
    : m_steps(steps)
    , m_limit(qint64{limit} * 1000)
{
    m_quiet.start();
}

void Watch::over(CURL *transfer)
{
    curl_easy_setopt(transfer, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(transfer, CURLOPT_XFERINFOFUNCTION, &Watch::asked);
    curl_easy_setopt(transfer, CURLOPT_XFERINFODATA, this);
}

int Watch::asked(void *watch, curl_off_t, curl_off_t received, curl_off_t, curl_off_t sent)
{
    auto &self = *static_cast<Watch *>(watch);
    // Asked about once a second; only bytes that moved count as a sign of life.
    if (received + sent != self.m_count) {
        self.m_count = received + sent;
        self.moved();
    }
    self.m_stalled = self.m_quiet.elapsed() > self.m_limit;
    return self.m_stalled || self.m_steps.areCancelled() ? 1 : 0;
}

} // namespace web
