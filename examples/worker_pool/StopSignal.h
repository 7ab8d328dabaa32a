#ifndef WORKER_POOL_STOPSIGNAL_H
#define WORKER_POOL_STOPSIGNAL_H

namespace worker_pool
{

/// From here on, the first SIGINT (Ctrl-C) and the first SIGTERM are only noted; a second one ends
/// the process at once. A signal that the process was started to ignore stays ignored.
void catchStopSignals();

/// The signal that asks the program to stop; 0 when there was none. For any thread.
int stopSignal();

}  // namespace worker_pool

#endif
