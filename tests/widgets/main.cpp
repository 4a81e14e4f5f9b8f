#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>

#include "dialogs/program.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The screen must hold the windows at every scale. Its file is named from its own folder: Qt
    // misreads an å or a colon in the variable.
    QDir::setCurrent(QStringLiteral(BRUSBO_SOURCES "/tests/widgets"));
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=screen.json");
    QApplication application(argc, argv);
    brusbo::prepare_application();
    return RUN_ALL_TESTS();
}
