#pragma once

#include "com/host_program/published_application.h"

namespace velmar::com {

/// How long a host lives that a client started.
struct Lifetime {
  unsigned idle_seconds;               // without any call: its client may have been killed
  unsigned first_client_seconds = 60;  // until the client that it was started for comes
};

/// Handles the thread's messages until Quit; with a lifetime also until the last client has gone.
void run_messages(const ServedObjects& objects, const PublishedApplication& application,
                  const Lifetime* lifetime);

}  // namespace velmar::com
