// Makes the three sound files of the game. Usage: make_sounds FOLDER

#include <cstdio>
#include <string>

#include "sound_synthesis.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_sounds FOLDER\n");
        return 2;
    }
    for (const brusbo::NamedSound& sound : brusbo::all_sounds()) {
        const std::string path = std::string(argv[1]) + '/' + sound.file;
        const std::string bytes = brusbo::wave_file(sound.samples);
        std::FILE* file = std::fopen(path.c_str(), "wb");
        const bool written =
            file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        if (file == nullptr || std::fclose(file) != 0 || !written) {
            std::fprintf(stderr, "make_sounds: cannot write %s\n", path.c_str());
            return 1;
        }
    }
    return 0;
}
