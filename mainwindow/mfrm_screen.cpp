#include "mainwindow/mfrm_screen.h"

#include <algorithm>
#include <cassert>

#include "mainwindow/layout.h"
#include "mainwindow/picture_stores.h"

namespace brusbo {

namespace {

/// Widgets live on a plane of limited size; a place beyond it is out of sight anyway.
int on_plane(std::int32_t coordinate) { return std::clamp(coordinate, -30000, 30000); }

QString colour_name(Store store) {
    switch (store) {
        case Store::gimgRöd:
            return QStringLiteral("Spelarens färg: röd");
        case Store::gimgBlå:
            return QStringLiteral("Spelarens färg: blå");
        case Store::gimgGrön:
            return QStringLiteral("Spelarens färg: grön");
        default:
            return QStringLiteral("Spelarens färg: gul");
    }
}

}  // namespace

QWidget* MFrmScreen::widget(ElementId element) const {
    const auto index = static_cast<std::size_t>(element.index);
    switch (element.element) {
        case Element::labVisa_tur:
            return window_.labVisa_tur;
        case Element::labMeddelande:
            return window_.labMeddelande;
        case Element::labPjäser_klara:
            return window_.labPjäser_klara;
        case Element::imgVisa_tur:
            return window_.imgVisa_tur;
        case Element::Tärning:
            return window_.Tärning;
        case Element::butEn_pjäs:
            return window_.butEn_pjäs;
        case Element::butTvå_pjäser:
            return window_.butTvå_pjäser;
        case Element::butNästa:
            return window_.butNästa;
        case Element::Pjäs:
            return window_.Pjäs.at(index);
        case Element::Plus:
            return window_.Plus.at(index);
        case Element::shpHålbak:
            return window_.shpHålbak;
        case Element::mnuArkiv:
            return window_.mnuArkiv;
        case Element::mnuOm:
            return window_.mnuOm;
        case Element::butMini:
            return window_.butMini;
        case Element::butAvsluta:
            return window_.butAvsluta;
    }
    Q_UNREACHABLE();
}

void MFrmScreen::set_text(Element label, std::string_view text) {
    auto* const target = qobject_cast<Label*>(widget(label));
    target->set_text(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

void MFrmScreen::set_visible(ElementId element, bool visible) {
    widget(element)->setVisible(visible);
}

void MFrmScreen::set_enabled(Element element, bool enabled) {
    widget(element)->setEnabled(enabled);
}

void MFrmScreen::set_picture(ElementId element, StorePicture picture) {
    const Picture shown = picture_of(picture);
    QWidget* const target = widget(element);
    if (auto* button = qobject_cast<PictureButton*>(target))
        button->set_picture(shown);
    else
        qobject_cast<Image*>(target)->set_picture(shown);
    if (element.element == Element::Tärning)
        target->setAccessibleName(QStringLiteral("Tärning, visar %1").arg(picture.index + 1));
    if (element.element == Element::imgVisa_tur)
        target->setAccessibleName(colour_name(picture.store));
}

void MFrmScreen::move(ElementId element, std::int32_t left, std::int32_t top) {
    widget(element)->move(on_plane(left), on_plane(top));
}

void MFrmScreen::set_left(Element element, std::int32_t twips) {
    QWidget* const target = widget(element);
    const auto left = static_cast<double>(twips) / twips_to_pixel;
    target->move(Place{left, 0, 0, 0}.pixels().left(), target->y());
}

void MFrmScreen::set_fill_colour(Element shape, Colour colour) {
    auto* const target = qobject_cast<Circle*>(widget(shape));
    target->set_colour(QColor(colour.red, colour.green, colour.blue));
}

void MFrmScreen::set_tag(Element element, std::string_view text) {
    widget(element)->setProperty(
        "Tag", QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

void MFrmScreen::set_focus(Element element) { widget(element)->setFocus(Qt::OtherFocusReason); }

LayoutPlace MFrmScreen::layout_place(ElementId element) const {
    assert(element.element == Element::Pjäs);
    const Place& place = main_layout::Pjäs[element.index].place;
    return {place.left, place.top};
}

}  // namespace brusbo
