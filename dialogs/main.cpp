#include <QApplication>

#include "dialogs/program.h"

int main(int, char** argv) {
    // The game takes nothing from the command line, and nothing from the desktop's settings: its
    // windows have a look of their own, and a desktop's theme would double the time it starts in.
    int argc = 1;
    char* name_alone[] = {argv[0], nullptr};
    QApplication::setDesktopSettingsAware(false);
    QApplication application(argc, name_alone);
    brusbo::prepare_application();
    brusbo::Program program;
    program.Main();
    return QApplication::exec();
}
