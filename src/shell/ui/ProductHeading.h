#pragma once

#include <QWidget>

class QLabel;

namespace shell {

/// "Version 2.3.1" of this installation, or a word that none is recorded.
[[nodiscard]] QString versionText();

/// The program's mark, the product's name and its version, as the login and About show them.
class ProductHeading : public QWidget
{
public:
    explicit ProductHeading(QWidget *parent = nullptr);

    QLabel *lblProductName;
    QLabel *lblVersion;
};

} // namespace shell
