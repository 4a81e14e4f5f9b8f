#pragma once

#include <QTemporaryDir>
#include <memory>

#include "tests/display/harness/child.h"
#include "tests/display/harness/waiting.h"
#include "tests/display/harness/x_client.h"

namespace brusbo::display {

enum class Manager { openbox, none };

/// An X server of our own, by default with a window manager, and a home folder that nothing else
/// uses. All is gone with the object.
class Desktop {
   public:
    explicit Desktop(Manager manager = Manager::openbox, QSize screen = {1280, 1024});

    const XClient& person() const { return *person_; }
    std::filesystem::path home() const { return folder_.path().toStdString(); }

    /// For programs that are to show themselves here; there is no session bus and no sound server.
    /// `more` goes before that.
    Environment environment(Environment more = {}) const;

    /// A further program of the desktop, such as a compositor.
    Child& start(const std::vector<std::string>& words, const Environment& more = {});

   private:
    void start_server(QSize screen);
    void start_openbox();

    const QTemporaryDir folder_;
    Environment environment_;
    std::vector<std::unique_ptr<Child>> programs_;  // the server first
    std::unique_ptr<XClient> person_;
};

}  // namespace brusbo::display
