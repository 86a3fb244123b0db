#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/viewer/PageStore.h"

#include <QListView>

namespace report {

/// Small pictures of all pages with their numbers, made when they come into view.
class Thumbnails final : public QListView
{
    Q_OBJECT

public:
    explicit Thumbnails(QWidget *parent = nullptr);

    /// Shows these pages, which must outlive the list.
    void setPages(const PageStore *pages, const PageSetup &page);
    /// More pages have come; the first may have changed.
    void addPages();
    /// From 0; does not tell that a page was chosen.
    void setCurrentPage(int index);

Q_SIGNALS:
    /// The user chose a page, by mouse or keys.
    void pageChosen(int index);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    class Model;
    class Delegate;

    Model *m_model;
    bool m_following = false; ///< the program moves the selection
};

} // namespace report
