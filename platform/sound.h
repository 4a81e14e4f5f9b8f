// Plays short wave files in the background.
#pragma once

#include <filesystem>
#include <memory>

namespace brusbo {

struct SoundRequests;

/// The sound of the program. On Linux the first play starts a thread, which loads what playing
/// needs; until then sound costs nothing. Where that cannot be had the program is silent. On
/// Windows it is the system's own asynchronous call.
class Sound {
   public:
    Sound() = default;
    /// Ends the sound that plays. Waits for the thread, where there is one, 150 ms at most and then
    /// lets it go.
    ~Sound();
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    /// Starts the wave file and returns at once, whatever state the file and the sound server are
    /// in; the file is read anew each time. The sound that plays is cut off. A file that is missing
    /// or no whole wave file plays nothing: on Linux the sound that plays goes on, on Windows it is
    /// cut off all the same. Nothing is reported, neither that nobody can play it. On Linux, when
    /// calls come faster than they can be served the newest counts, and what the server has not
    /// taken after two seconds is forgotten. One thread only.
    void play(const std::filesystem::path& file);

   private:
    // Shared with the thread, which may outlive this object; nothing where there is none.
    std::shared_ptr<SoundRequests> requests_;
};

}  // namespace brusbo
