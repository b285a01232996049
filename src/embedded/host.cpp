#include "embedded/host.h"

#include "drawing/journal.h"

namespace velmar::embedded {

std::shared_ptr<Application> start(Input& input, const Options& options) {
  const auto session = std::make_shared<Session>(input);
  if (!options.journal.empty()) {
    session->journal = std::make_shared<drawing::Journal>(options.journal);
  }
  session->keeps_history = options.history;
  auto application = std::make_shared<Application>(session);
  session->application = application;
  for (const std::filesystem::path& path : options.drawings) application->open(path);
  if (!options.drawings.empty()) application->activate(application->open(options.drawings.front()));
  return application;
}

}  // namespace velmar::embedded
