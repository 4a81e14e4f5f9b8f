// Plays short wave files in the background.
#pragma once

#include <filesystem>
#include <memory>

namespace brusbo {

struct SoundRequests;

/// The sound of the program. The first play starts a thread, which loads what playing needs; until
/// then sound costs nothing. Where that cannot be had the program is silent.
class Sound {
   public:
    Sound() = default;
    /// Ends the sound that plays. Waits for the thread 150 ms at most and then lets it go.
    ~Sound();
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    /// Starts the wave file and returns at once, whatever state the file and the sound server are
    /// in; the file is read anew each time. The sound that plays is cut off. A file that is missing
    /// or no whole wave file changes nothing; neither does one without a server to play it. Nothing
    /// is reported. When calls come faster than they can be served the newest counts, and what the
    /// server has not taken after two seconds is forgotten. One thread only.
    void play(const std::filesystem::path& file);

   private:
    // Shared with the thread, which may outlive this object.
    std::shared_ptr<SoundRequests> requests_;
};

}  // namespace brusbo
