#pragma once

#include "engine/screen.h"
#include "mainwindow/mfrm.h"

namespace brusbo {

/// The rules' element operations, carried out on the widgets of the main window.
class MFrmScreen : public Screen {
   public:
    explicit MFrmScreen(MFrm& window) : window_(window) {}

    void set_text(Element label, std::string_view text) override;
    void set_visible(ElementId element, bool visible) override;
    void set_enabled(Element element, bool enabled) override;
    void set_picture(ElementId element, StorePicture picture) override;
    void move(ElementId element, std::int32_t left, std::int32_t top) override;
    void set_left(Element element, std::int32_t twips) override;
    void set_fill_colour(Element shape, Colour colour) override;
    void set_tag(Element element, std::string_view text) override;
    void set_focus(Element element) override;
    LayoutPlace layout_place(ElementId element) const override;

   private:
    QWidget* widget(ElementId element) const;

    MFrm& window_;
};

}  // namespace brusbo
