#pragma once

#include "mainwindow/game_menu.h"
#include "mainwindow/mfrm_elements.h"
#include "mainwindow/picture_buttons.h"
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

/// The main window. What its elements show is the rules' business (MFrmScreen).
class MFrm : public Window {
   public:
    explicit MFrm(OtherWindows& other_windows);

    /// Reads the positions file, before any of the elements exists; throws as Ladda_Positioner
    /// does. Once, after set_world().
    static void Form_Load();

    const MFrmElements& elements() const { return elements_; }

   protected:
    void Form_Activate() override;
    void close_requested() override;
    bool eventFilter(QObject* receiver, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

   private:
    void connect_clicks();

    /// What a click would do something to now, in tab order.
    std::vector<QAbstractButton*> clickable() const;
    /// The handler of an action that changes what is clickable; while it runs nothing is.
    InputGate::Function settled(InputGate::Function handler);
    /// Nothing keeps the focus that is not clickable; where it is not marked `butNästa` alone does.
    void settle();
    /// A hand over what is clickable, an arrow elsewhere.
    void show_hand();

    void mnuArkiv_Click();
    void mnuOm_Click();
    void butMini_Click();
    void butAvsluta_Click();
    void mnuNytt_spel_Click();
    void mnuNytt_snabbt_Click();
    void mnuAvsluta_Click();

    OtherWindows& other_windows_;
    MFrmElements elements_;
    PictureButtons picture_buttons_;
    GameMenu aaa_;
};

}  // namespace brusbo
