#include "dialogs/startfrm.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>
#include <utility>

#include "engine/engine.h"
#include "platform/elements.h"
#include "platform/ending.h"
#include "platform/keyboard.h"

namespace brusbo {

/// The start window's table, in tab order.
struct Startfrm::Elements {
    explicit Elements(QWidget* start_window) : window(start_window) {}

    QWidget* window;
    std::vector<Image*> imgLinje = separators(window, {{18, 202}, {18, 236}, {18, 84}});
    std::vector<OptionButton*> AntSpelare = {
        new OptionButton(window, {"AntSpelare(0)", {28, 108, 15, 17}, "En spelare"}, 0xFFFF0000),
        new OptionButton(window, {"AntSpelare(1)", {28.5, 128, 15, 17}, "Två spelare"}, 0xFF0000FF),
        new OptionButton(window, {"AntSpelare(2)", {28.5, 150, 15, 17}, "Tre spelare"}, 0xFF00FF00),
        new OptionButton(window, {"AntSpelare(3)", {28.5, 172, 15, 17}, "Fyra spelare"},
                         0xFFFFFF00)};
    std::vector<NameBox*> Namn = {name_box(0), name_box(1), name_box(2), name_box(3)};
    CommandButton& Starta = *new CommandButton(window, {"Starta", {60, 258, 71, 33}, "Starta"},
                                               "Starta", 0xFFFFE0C0, Font::large);
    CheckBox& Sound = *new CheckBox(window, {"Sound", {54, 216, 13, 13}, "Ljud på/av"});
    Label& Label3 = *new Label(window, {"Label3", {72, 216, 83, 15}, "Ljud på/av"},
                               {Font::bold, 0xFFFFFF00}, "Ljud på/av");

   private:
    NameBox* name_box(int index) {
        const QString accessible = QStringLiteral("Namn på spelare %1").arg(index + 1);
        return new NameBox(
            window, {numbered("Namn", index), {52.5, 104.0 + 22 * index, 105, 19}, accessible},
            default_name(index + 1));
    }
};

QString Startfrm::default_name(int player) {
    static constexpr const char* names[] = {"Röd", "Blå", "Grön", "Gul"};
    return QString::fromUtf8(names[player - 1]);
}

Startfrm::Startfrm(MainWindow main_window)
    : Window("Startfrm", "Brusbo",
             Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint,
             {188, 305}),
      main_window_(std::move(main_window)),
      elements_(std::make_unique<Elements>(this)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (int index = 0; index < most_players; ++index) {
        const auto at = static_cast<std::size_t>(index);
        on_click(
            *elements_->AntSpelare[at], [this, index] { AntSpelare_Click(index); });
        connect(elements_->Namn[at], &QLineEdit::textChanged, this,
                [this, index] { Namn_Change(index); });
    }
    on_click(
        elements_->Sound, [this] { Sound_Click(); });
    on_click(elements_->Starta, [this] { Starta_Click(); });

    for (std::size_t players = 2; players <= most_players; ++players)
        elements_->AntSpelare[players - 1]->setToolTip(QStringLiteral("%1 spelare").arg(players));
    elements_->AntSpelare[0]->setEnabled(false);
    elements_->AntSpelare[1]->setChecked(true);
    elements_->Namn[2]->setEnabled(false);
    elements_->Namn[3]->setEnabled(false);
    // The chosen option stands first in tab order.
    elements_->AntSpelare[1]->setFocus();
    center_on(screen_area());
}

Startfrm::~Startfrm() = default;

void Startfrm::Form_Load() {
    Antal_spelare = 2;
    Ljud_på = true;
    main_window_.load();
}

void Startfrm::Form_Activate() {
    Nollställ_spelare();
    for (int index = 0; index < most_players; ++index) Namn_Change(index);
}

void Startfrm::Form_Unload() { end_program(); }

void Startfrm::AntSpelare_Click(int Index) {
    Spela_ljud(sound_step);
    Antal_spelare = static_cast<std::int16_t>(Index + 1);
    for (int index = 0; index < most_players; ++index)
        elements_->Namn[static_cast<std::size_t>(index)]->setEnabled(index <= Index);
}

void Startfrm::Namn_Change(int Index) {
    const NameBox& box = *elements_->Namn[static_cast<std::size_t>(Index)];
    Spelare[Index + 1].Namn = box.text().toStdString();
}

void Startfrm::Sound_Click() {
    Spela_ljud(sound_click);
    Ljud_på = elements_->Sound.isChecked();
}

void Startfrm::Starta_Click() {
    Spela_ljud(sound_click);
    hide();
    main_window_.show();
}

void Startfrm::wait_until_painted() {
    constexpr std::chrono::milliseconds longest(100);
    QEventLoop loop;
    painted_ = [&loop] { loop.quit(); };
    QTimer::singleShot(longest, &loop, &QEventLoop::quit);
    loop.exec();
    painted_ = {};
}

void Startfrm::keyPressEvent(QKeyEvent* event) {
    if (is_return(*event))
        elements_->Starta.click();
    else
        Window::keyPressEvent(event);
}

void Startfrm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint_picture(painter, background, {0, 0});
    // The picture reaches beyond this window, at whose end the foot of its frame is painted again.
    constexpr int frame = 5;
    painter.setClipRect(0, height() - frame, width(), frame);
    paint_picture(painter, background, {0, height() - picture_size(background).height()});
    if (painted_) painted_();
}

}  // namespace brusbo
