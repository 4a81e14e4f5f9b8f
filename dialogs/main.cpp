#include <QApplication>

#include "dialogs/program.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    brusbo::prepare_application();
    brusbo::Program program;
    program.Main();
    return QApplication::exec();
}
