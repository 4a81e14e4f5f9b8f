// A sound module that answers nothing: it takes the first request and comes back only when the
// program that asked is done with waiting. It notes what it took in the file of that name.
#include <unistd.h>

#include <fstream>

#include "platform/sound_backend/sound_requests.h"

extern "C" __attribute__((visibility("default"))) void brusbo_sound_loop(
    brusbo::SoundRequests& requests) {
    std::string path;
    while ((path = requests.take()).empty()) usleep(1000);
    std::ofstream(path) << path << std::flush;
    while (access((path + ".go").c_str(), F_OK) != 0) usleep(1000);
    const bool closed = requests.closed();
    const std::string newest = requests.take();
    std::ofstream(path + ".end~") << (closed ? "closed" : newest);
    rename((path + ".end~").c_str(), (path + ".end").c_str());
}
