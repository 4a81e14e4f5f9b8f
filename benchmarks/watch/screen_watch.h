#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "tests/display/harness/x_client.h"

namespace brusbo::display {

using Clock = std::chrono::steady_clock;
using Moment = Clock::time_point;

/// Is told by the X server whenever something is drawn on its screen.
class ScreenWatch {
   public:
    explicit ScreenWatch(const std::string& display);

    const XClient& client() const { return client_; }

    /// When the next drawing that touches the area was heard of; nothing at the deadline.
    std::optional<Moment> wait_for_drawing(const QRect& area, Moment deadline);

    /// Until nothing has been drawn there for so long.
    void wait_for_rest(const QRect& area, Clock::duration rest);

   private:
    XClient client_;
    std::uint8_t first_event_ = 0;
};

}  // namespace brusbo::display
