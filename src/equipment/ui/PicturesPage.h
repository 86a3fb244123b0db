#pragma once

#include "scheduling/ui/GridPage.h"

class PictureView;
class QPushButton;
class ThumbnailColumn;

/// The pictures of a machine: their names with small pictures, and the chosen one beside them as
/// large as it goes.
class PicturesPage final : public GridPage
{
    Q_OBJECT

public:
    explicit PicturesPage(MachineFrame &frame, QWidget *parent = nullptr);

    void showMachine(qint64 EquipmentID) override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void RefreshImageGrid(qint64 equipmentID);
    /// Shows the chosen picture, or leaves that until the page is seen.
    void LoadEquipmentPicture();
    void EnableControls() override;
    void rowChanged() override;
    void cmdAddImage_Click();
    void cmdRemoveImage_Click();

    bool m_pictureIsOld = false; ///< another one is to be loaded when the page is next seen

    grid::GridView *grdImage = nullptr;
    ThumbnailColumn *m_thumbnails = nullptr;
    PictureView *imgEquipment = nullptr;
    QPushButton *cmdAddImage = nullptr;
    QPushButton *cmdRemoveImage = nullptr;
};
