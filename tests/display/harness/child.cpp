#include "tests/display/harness/child.h"

#include <signal.h>
#include <sys/prctl.h>

#include <fstream>

#include "tests/display/harness/waiting.h"

namespace brusbo::display {

Child::Child(const std::vector<std::string>& words, const Environment& environment,
             const std::filesystem::path& folder, const std::filesystem::path& log)
    : log_(log) {
    QProcessEnvironment variables;
    for (const auto& [name, value] : environment)
        variables.insert(QString::fromStdString(name), QString::fromStdString(value));
    process_.setProcessEnvironment(variables);
    process_.setWorkingDirectory(QString::fromStdString(folder));
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.setStandardOutputFile(QString::fromStdString(log));
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    QStringList arguments;
    for (const std::string& word : words) arguments += QString::fromStdString(word);
    const QString program = arguments.takeFirst();
    start_ = std::chrono::steady_clock::now();
    process_.start(program, arguments);
}

Child::~Child() {
    terminate();
    constexpr int patience = 5000;  // milliseconds
    if (process_.waitForFinished(patience)) return;
    process_.kill();
    process_.waitForFinished();
}

bool Child::runs() {
    // The state is as of the last wait.
    process_.waitForFinished(0);
    return process_.state() != QProcess::NotRunning;
}

std::optional<int> Child::exit_code() {
    wait_for("the end of a process", [this] { return !runs(); });
    if (process_.exitStatus() != QProcess::NormalExit) return {};
    return process_.exitCode();
}

std::string Child::output() const {
    std::ifstream file(log_);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace brusbo::display
