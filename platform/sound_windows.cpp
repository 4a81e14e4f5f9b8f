#include <windows.h>

#include "platform/sound.h"
// After it, since it leans on it.
#include <mmsystem.h>

namespace brusbo {

Sound::~Sound() { PlaySoundW(nullptr, nullptr, 0); }

// The wide characters of the path: a folder may have letters that the user's code page lacks.
void Sound::play(const std::filesystem::path& file) {
    PlaySoundW(file.c_str(), nullptr, SND_ASYNC | SND_NODEFAULT);
}

}  // namespace brusbo
