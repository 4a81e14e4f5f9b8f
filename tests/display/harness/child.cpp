#include "tests/display/harness/child.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "tests/display/harness/waiting.h"

namespace brusbo::display {

namespace {

std::vector<char*> pointers(std::vector<std::string>& words) {
    std::vector<char*> result;
    for (std::string& word : words) result.push_back(word.data());
    result.push_back(nullptr);
    return result;
}

}  // namespace

Child::Child(const Command& command) : log_(command.log) {
    std::vector<std::string> words = command.words;
    std::vector<std::string> variables;
    for (const auto& [name, value] : command.environment) variables.push_back(name + '=' + value);
    const std::vector<char*> arguments = pointers(words);
    const std::vector<char*> environment = pointers(variables);
    const int log = open(log_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);

    start_ = std::chrono::steady_clock::now();
    id_ = fork();
    if (id_ < 0) throw std::runtime_error("no process for " + words[0]);
    if (id_ > 0) {
        close(log);
        return;
    }
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    if (command.descriptor == 3)
        fcntl(3, F_SETFD, 0);
    else if (command.descriptor >= 0)
        dup2(command.descriptor, 3);
    if (chdir(command.folder.c_str()) == 0)
        execvpe(arguments[0], arguments.data(), environment.data());
    _exit(127);
}

Child::~Child() {
    using namespace std::chrono_literals;
    send(SIGTERM);
    const auto deadline = std::chrono::steady_clock::now() + 5s;
    while (runs() && std::chrono::steady_clock::now() < deadline) std::this_thread::sleep_for(1ms);
    if (status_) return;
    send(SIGKILL);
    waitpid(id_, nullptr, 0);
}

bool Child::runs() {
    int status = 0;
    if (!status_ && waitpid(id_, &status, WNOHANG) == id_) status_ = status;
    return !status_;
}

void Child::send(int signal) const {
    if (!status_) kill(id_, signal);
}

std::optional<int> Child::exit_code() {
    wait_for("the end of a process", [this] { return !runs(); });
    if (!WIFEXITED(*status_)) return {};
    return WEXITSTATUS(*status_);
}

std::string Child::output() const {
    std::ifstream file(log_);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace brusbo::display
