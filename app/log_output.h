// Where log lines go.
#pragma once

namespace orvanta {

/// Every log line goes to standard error as "category: text", one line each and whole even when
/// several processes write, never to the system's journal. A fatal message ends the process with
/// exit status 1 until programIsUp is called; it then aborts, as usual.
void sendLogToStandardError();
void programIsUp();

} // namespace orvanta
