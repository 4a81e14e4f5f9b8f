// The program beside a sound thread that hangs.
#include <gtest/gtest.h>

#include "platform/sound.h"
#include "platform/sound_backend/sound_requests.h"

namespace brusbo {

static std::promise<void> all_played, abandoned;
static std::promise<std::string> newest;
static std::promise<bool> closed;

void hang(SoundRequests& requests) {
    all_played.get_future().wait();
    newest.set_value(requests.take());
    abandoned.get_future().wait();
    closed.set_value(requests.closed());
}

TEST(StuckSound, KeepsTheNewestRequestOnlyAndDoesNotHoldTheEnd) {
    {
        Sound sound;
        for (int i = 0; i < 10000; ++i) sound.play(QString::number(i));
        all_played.set_value();
        EXPECT_EQ(newest.get_future().get(), "9999");
    }
    abandoned.set_value();
    EXPECT_TRUE(closed.get_future().get());
}

}  // namespace brusbo
