#pragma once

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace shell {

/// What stands in the middle of the main window as long as no board does: the company's name,
/// today's date, and links to what can be opened.
class StartPage : public QWidget
{
    Q_OBJECT

public:
    explicit StartPage(QWidget *parent = nullptr);

    /// Reads the company's name and the date anew.
    void LoadData();

Q_SIGNALS:
    void quickLinkClicked(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void addLinks(QVBoxLayout *column);

    QLabel *lblCompany = nullptr;
    QLabel *lblToday = nullptr;
};

} // namespace shell
