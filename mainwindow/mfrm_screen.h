#pragma once

#include <vector>

#include "engine/screen.h"
#include "mainwindow/mfrm.h"

namespace brusbo {

/// The rules' element operations, carried out on the widgets of the main window. Before there is
/// one, elements can be given their pictures, which the window gets when it comes.
class MFrmScreen : public Screen {
   public:
    void show_on(const MFrm& window);

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
    struct Given {
        ElementId element;
        StorePicture picture;
    };

    QWidget& widget(ElementId element) const;

    const MFrm* window_ = nullptr;
    std::vector<Given> early_pictures_;
};

}  // namespace brusbo
