#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <cstdio>

#include "dialogs/program.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The screen must hold the windows at every scale. Its file is named from its own folder: Qt
    // misreads an å or a colon in the variable.
    QDir::setCurrent(QStringLiteral(BRUSBO_TEST_SCREEN_FOLDER));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=screen.json");
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QApplication application(argc, argv);
    brusbo::prepare_application();
    return RUN_ALL_TESTS();
}
