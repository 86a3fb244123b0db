#include "platform/db/Blob.h"

#include <algorithm>

namespace db::engine {
namespace {

/// Bytes that go to or come from the engine in one call.
constexpr unsigned segmentSize = 65535;

} // namespace

ISC_QUAD writeBlob(const QByteArray &content, const Context &context)
{
    Status status;
    ISC_QUAD id{};
    Ref<Firebird::IBlob> blob(
        context.attachment->createBlob(&status, context.transaction, &id, 0, nullptr));
    for (qsizetype done = 0; done < content.size(); done += segmentSize) {
        const auto length =
            static_cast<unsigned>(std::min<qsizetype>(segmentSize, content.size() - done));
        blob->putSegment(&status, length, content.constData() + done);
    }
    blob->close(&status);
    blob.take();
    return id;
}

QByteArray readBlob(ISC_QUAD id, const Context &context)
{
    Status status;
    Ref<Firebird::IBlob> blob(
        context.attachment->openBlob(&status, context.transaction, &id, 0, nullptr));
    QByteArray content;
    QByteArray segment(static_cast<qsizetype>(segmentSize), Qt::Uninitialized);
    for (;;) {
        unsigned length = 0;
        const int result = blob->getSegment(&status, segmentSize, segment.data(), &length);
        // The last piece comes together with the news that it is the last.
        content.append(segment.constData(), static_cast<qsizetype>(length));
        if (result == Firebird::IStatus::RESULT_NO_DATA ||
            result == Firebird::IStatus::RESULT_ERROR)
            break;
    }
    blob->close(&status);
    blob.take();
    return content;
}

} // namespace db::engine
