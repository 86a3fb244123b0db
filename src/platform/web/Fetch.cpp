#include "platform/web/Fetch.h"

#include "platform/web/Curl.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace web {
namespace {

constexpr long MostRedirects = 5;

[[noreturn]] void raise(const QString &text)
{
    throw base::Error(base::ErrorNumber::InvalidCall, text);
}

struct Answer
{
    QByteArray bytes;
    qint64 limit = 0;
    bool isTooLong = false;
};

std::size_t take(char *data, std::size_t, std::size_t size, void *into)
{
    auto &answer = *static_cast<Answer *>(into);
    // Piece by piece, whatever length the server has announced.
    answer.isTooLong = answer.bytes.size() + static_cast<qint64>(size) > answer.limit;
    if (answer.isTooLong)
        return 0;
    answer.bytes.append(data, static_cast<qsizetype>(size));
    return size;
}

[[noreturn]] void raiseFailure(CURL *transfer, CURLcode code, const QString &host)
{
    switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_CONNECT:
        raise(u"\"%1\" can't be reached."_s.arg(host));
    case CURLE_OPERATION_TIMEDOUT:
        raise(u"\"%1\" did not answer in time."_s.arg(host));
    case CURLE_PEER_FAILED_VERIFICATION:
        raise(u"The certificate of \"%1\" is not valid, so nothing was taken from there."_s.arg(
            host));
    case CURLE_HTTP_RETURNED_ERROR: {
        long status = 0;
        curl_easy_getinfo(transfer, CURLINFO_RESPONSE_CODE, &status);
        raise(u"\"%1\" answered with the error %2."_s.arg(host).arg(status));
    }
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_TOO_MANY_REDIRECTS:
        raise(u"\"%1\" leads to an address that is not followed."_s.arg(host));
    default:
        raise(u"\"%1\" could not be read (%2)."_s.arg(
            host, QString::fromLatin1(curl_easy_strerror(code))));
    }
}

} // namespace

bool isWebAddress(const QString &address)
{
    const QUrl url(address, QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == u"http" || url.scheme() == u"https");
}

QByteArray fetch(const QString &address, const base::Steps &steps, FetchLimits limits)
{
    if (!isWebAddress(address))
        raise(u"\"%1\" is not an address of the web."_s.arg(address.left(200)));
    const QUrl url(address, QUrl::StrictMode);
    const Curl transfer = makeTransfer();
    Answer answer{.bytes = {}, .limit = limits.bytes};
    CURL *handle = transfer.get();
    curl_easy_setopt(handle, CURLOPT_URL, url.toEncoded().constData());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    // A redirect must not lead to files of this computer.
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, MostRedirects);
    curl_easy_setopt(handle, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(handle, CURLOPT_USERAGENT, "Quorvantis");
    curl_easy_setopt(handle, CURLOPT_TIMEOUT, long{limits.seconds});
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &take);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &answer);
    Watch watch(steps, limits.seconds);
    watch.over(handle);

    const CURLcode code = curl_easy_perform(handle);
    if (code == CURLE_OK)
        return answer.bytes;
    if (steps.areCancelled())
        throw base::Cancelled();
    if (answer.isTooLong)
        raise(u"The answer of \"%1\" is longer than %2 bytes and was not read."_s.arg(url.host())
                  .arg(limits.bytes));
    raiseFailure(handle, code, url.host());
}

} // namespace web
