#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <cstdio>

#include "dialogs/program.h"

int main(int argc, char** argv) {
    // The screen must hold the windows at every scale. Its file is named from its own folder: Qt
    // misreads an å or a colon in the variable.
    const QString started_in = QDir::currentPath();
    QDir::setCurrent(QStringLiteral(BRUSBO_TEST_SCREEN_FOLDER));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=screen.json");
    // Leaves out what the offscreen platform says of every window that is raised.
    qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& where, const QString& said) {
            if (!said.startsWith(QLatin1String("This plugin does not support")))
                std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, where, said)));
        });
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QDir::setCurrent(started_in);
    brusbo::prepare_application();
    return RUN_ALL_TESTS();
}
