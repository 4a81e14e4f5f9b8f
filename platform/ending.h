#pragma once

#include <QString>
#include <functional>

namespace brusbo {

/// How the program ends at once: without closing windows one by one, without waiting for anything.
/// The tests put something else here; callers must therefore expect it to return.
std::function<void(int exit_code)>& program_end();

/// Ends the program at once.
inline void end_program(int exit_code = 0) { program_end()(exit_code); }

/// Shows the message of an error that nothing can mend, in a message box and on standard error, and
/// ends the program with a non-zero code. Inside an action of the InputGate.
void stop_with_message(const QString& message);

}  // namespace brusbo
