// Plays the sounds that its standard input names, one a line, as the game does.
#include <QApplication>
#include <iostream>

#include "dialogs/program.h"

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    brusbo::Program game;
    for (std::string name; std::getline(std::cin, name); std::cout << name << std::endl)
        game.play_sound(name);
}
