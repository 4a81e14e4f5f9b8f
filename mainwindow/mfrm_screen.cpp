#include "mainwindow/mfrm_screen.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "mainwindow/picture_stores.h"

namespace brusbo {

namespace {

/// Widgets live on a plane of limited size; a place beyond it is out of sight anyway.
int on_plane(std::int32_t coordinate) { return std::clamp(coordinate, -30000, 30000); }

QString text_of(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// What a screen reader is to say of an element that shows this picture; empty where it always
/// says the same.
QString words_for(ElementId element, StorePicture picture) {
    static constexpr const char* colours[] = {"röd", "blå", "grön", "gul"};
    if (element.element == Element::Tärning)
        return QStringLiteral("Tärning, visar %1").arg(picture.index + 1);
    if (element.element == Element::imgVisa_tur)
        return QStringLiteral("Spelarens färg: ") +
               QString::fromUtf8(colours[static_cast<int>(picture.store)]);
    return {};
}

}  // namespace

void MFrmScreen::show_on(const MFrm& window) {
    window_ = &window;
    for (const Given& given : std::exchange(early_pictures_, {}))
        set_picture(given.element, given.picture);
}

QWidget& MFrmScreen::widget(ElementId element) const {
    assert(window_ != nullptr);
    const auto& named = window_->elements().by_name.at(element.element);
    return *named.at(static_cast<std::size_t>(element.index));
}

void MFrmScreen::set_text(Element label, std::string_view text) {
    dynamic_cast<Label&>(widget(label)).set_text(text_of(text));
}

void MFrmScreen::set_visible(ElementId element, bool visible) {
    widget(element).setVisible(visible);
}

void MFrmScreen::set_enabled(Element element, bool enabled) { widget(element).setEnabled(enabled); }

void MFrmScreen::set_picture(ElementId element, StorePicture picture) {
    if (window_ == nullptr) {
        early_pictures_.push_back({element, picture});
        return;
    }
    QWidget& target = widget(element);
    dynamic_cast<PictureHolder&>(target).set_picture(picture_of(picture));
    const QString words = words_for(element, picture);
    if (!words.isEmpty()) target.setAccessibleName(words);
}

void MFrmScreen::move(ElementId element, std::int32_t left, std::int32_t top) {
    widget(element).move(on_plane(left), on_plane(top));
}

void MFrmScreen::set_left(Element element, std::int32_t twips) {
    QWidget& target = widget(element);
    const auto left = static_cast<double>(twips) / twips_per_pixel;
    target.move(Place{left, 0, 0, 0}.pixels().left(), target.y());
}

void MFrmScreen::set_fill_colour(Element shape, Colour colour) {
    dynamic_cast<Circle&>(widget(shape)).set_colour(QColor(colour.red, colour.green, colour.blue));
}

void MFrmScreen::set_tag(Element element, std::string_view text) {
    widget(element).setProperty("Tag", text_of(text));
}

void MFrmScreen::set_focus(Element element) { widget(element).setFocus(Qt::OtherFocusReason); }

LayoutPlace MFrmScreen::layout_place(ElementId element) const {
    assert(element.element == Element::Pjäs);
    return layout_places[element.index];
}

}  // namespace brusbo
