#pragma once

#include <QWidget>

class QGridLayout;
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
    /// Gives the texts their fonts; after the form's layout, which gives all labels the same.
    void applyFonts();

Q_SIGNALS:
    void quickLinkClicked(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void addLinks(QVBoxLayout *column);
    void addLink(QGridLayout *rows, int index);

    QLabel *lblCompany = nullptr;
    QLabel *lblToday = nullptr;
    QList<QLabel *> m_purposes;
};

} // namespace shell
