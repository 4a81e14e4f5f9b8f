#pragma once

#include <QApplication>

#include "dialogs/program.h"

namespace brusbo {

/// Runs the game as its own main() does, with another program in place of Program.
template <class OtherProgram>
int run_game() {
    // Windows are found by the class that they have from the program's name.
    int count = 1;
    char name[] = "brusbo";
    char* arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    prepare_application();
    OtherProgram program;
    program.Main();
    return QApplication::exec();
}

}  // namespace brusbo
