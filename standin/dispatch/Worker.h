#pragma once
// The background thread: it runs all serial queues and waits for events of files.

#include <asio/io_context.hpp>

namespace standin {

/// The thread's event loop. The thread starts when this is first asked for, and stops before the process
/// takes itself apart.
asio::io_context& workerLoop();

}  // namespace standin
