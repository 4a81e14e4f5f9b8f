#pragma once

#include <QAction>
#include <functional>
#include <memory>
#include <vector>

#include "mainwindow/game_menu.h"
#include "mainwindow/picture_buttons.h"
#include "platform/elements.h"
#include "platform/window.h"

namespace brusbo {

/// The windows above the main window that its buttons open.
class OtherWindows {
   public:
    virtual ~OtherWindows() = default;

    /// Shows the about window and returns when it has been closed.
    virtual void show_frmOm() = 0;
    /// Shows the farewell window, or brings it up.
    virtual void show_Slut() = 0;
};

/// The main window with its elements. What they show is the rules' business (MFrmScreen).
class MFrm : public Window {
   public:
    explicit MFrm(OtherWindows& other_windows);
    ~MFrm() override;

    /// Reads the positions file and gives the elements their pictures; throws as
    /// Ladda_Positioner does. Once, after `set_world`.
    void Form_Load();

    // The elements that the rules write to.
    Label* labVisa_tur = nullptr;
    Label* labMeddelande = nullptr;
    Label* labPjäser_klara = nullptr;
    Image* imgVisa_tur = nullptr;
    PictureButton* Tärning = nullptr;
    LabelButton* butEn_pjäs = nullptr;
    LabelButton* butTvå_pjäser = nullptr;
    CommandButton* butNästa = nullptr;
    std::vector<PictureButton*> Pjäs;
    std::vector<Image*> Plus;
    Circle* shpHålbak = nullptr;
    PictureButton* mnuArkiv = nullptr;
    PictureButton* mnuOm = nullptr;
    PictureButton* butMini = nullptr;
    PictureButton* butAvsluta = nullptr;

   protected:
    void Form_Activate() override;
    void close_requested() override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

   private:
    void make_title_bar();
    void make_side_panel();
    void make_board();
    void connect_clicks();

    void mnuArkiv_Click();
    void mnuOm_Click();
    void butMini_Click();
    void butAvsluta_Click();

    OtherWindows& other_windows_;
    GameMenu aaa_;
    std::unique_ptr<PictureButtons> picture_buttons_;
};

}  // namespace brusbo
