#include "embedded/host.h"

namespace velmar::embedded {

std::shared_ptr<Application> start(Input& input, const Options& options) {
  const auto session = std::make_shared<Session>(input);
  auto application = std::make_shared<Application>(session);
  session->application = application;
  for (const std::filesystem::path& path : options.drawings) application->open(path);
  if (!options.drawings.empty()) application->activate(application->open(options.drawings.front()));
  return application;
}

}  // namespace velmar::embedded
