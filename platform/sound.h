// Plays short wave files in the background.
#pragma once

#include <QString>
#include <future>
#include <memory>
#include <thread>

namespace brusbo {

class SoundRequests;

// The sound of the program. The first play starts a thread, which loads what playing needs; until
// then sound costs nothing. Where that cannot be had the program is silent.
class Sound {
   public:
    Sound() = default;
    // Ends the sound that plays. Waits for the thread 200 ms at most and then lets it go.
    ~Sound();
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    // Starts the wave file and returns at once, whatever state the file and the sound server are
    // in; the file is read anew each time. The sound that plays is cut off. A file that is missing
    // or no valid wave file changes nothing; neither does one without a server to play it. Nothing
    // is reported. When calls come faster than they can be served the newest counts. One thread
    // only.
    void play(const QString& path);

   private:
    void start_thread();

    // Shared with the thread, which may outlive this object.
    std::shared_ptr<SoundRequests> requests_;
    std::thread thread_;
    std::future<void> finished_;
};

}  // namespace brusbo
