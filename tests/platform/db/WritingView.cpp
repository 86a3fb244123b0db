#include "platform/db/WritingView.h"

#include "platform/db/Attachment.h"

namespace test {

void addWritingView(const db::Target &target, const QString &name, const QString &written)
{
    db::engine::Attachment engine(target);
    engine.executeAlone(QStringLiteral("create procedure \"%1Rows\" returns (\"n\" integer) as "
                                       "begin %2; \"n\" = 1; suspend; end")
                            .arg(name, written));
    engine.executeAlone(
        QStringLiteral("create view \"%1\" (\"n\") as select \"n\" from \"%1Rows\"").arg(name));
}

} // namespace test
