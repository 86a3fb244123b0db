#include "shell/ui/ProductHeading.h"

#include "core/RegistryValues.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace shell {
namespace {
constexpr int markSize = 48;
}

QString versionText()
{
    const QString version = GetVersionNo();
    return version.isEmpty() ? u"No version is recorded on this computer"_s
                             : u"Version "_s + version;
}

ProductHeading::ProductHeading(QWidget *parent)
    : QWidget(parent)
    , lblProductName(new QLabel(QApplication::applicationName(), this))
    , lblVersion(new QLabel(versionText(), this))
{
    auto *mark = new QLabel(this);
    mark->setPixmap(theme::programIcon().pixmap(markSize));
    lblProductName->setObjectName(u"lblProductName"_s);
    theme::setOwnLook(lblProductName, theme::font(14, true));
    lblVersion->setObjectName(u"lblVersion"_s);
    theme::setOwnLook(lblVersion, theme::font(9));

    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch();
    texts->addWidget(lblProductName);
    texts->addWidget(lblVersion);
    texts->addStretch();
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 8);
    row->setSpacing(12);
    row->addWidget(mark);
    row->addLayout(texts, 1);
}

} // namespace shell
