#include "platform/ending.h"

#include <QMessageBox>
#include <cstdio>
#include <cstdlib>

#include "platform/input_gate.h"

namespace brusbo {

std::function<void(int)>& program_end() {
    static std::function<void(int)> end = [](int exit_code) { std::_Exit(exit_code); };
    return end;
}

void stop_with_message(const QString& message) {
    std::fprintf(stderr, "brusbo: %s\n", qPrintable(message));
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Brusbo"), message, QMessageBox::Ok);
    QEventLoop loop;
    QObject::connect(&box, &QDialog::finished, &loop, &QEventLoop::quit);
    box.setModal(true);
    box.show();
    InputGate::instance().open_for(loop);
    end_program(EXIT_FAILURE);
}

}  // namespace brusbo
