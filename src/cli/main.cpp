#include <exception>
#include <string>

#include "cli/action.h"
#include "cli/command_line.h"
#include "cli/console.h"
#include "cli/printable.h"
#include "cli/process.h"
#include "cli/usage_error.h"
#include "drawing/error.h"

using velmar::cli::ExitCode;
using velmar::cli::UsageError;

int main(int argc, char** argv) {
  velmar::cli::install_signal_handlers();
  velmar::cli::end_with_parent();
  try {
    return static_cast<int>(
        velmar::cli::read_command_line(velmar::cli::command_line(argc, argv))());
  } catch (const UsageError& error) {
    velmar::cli::complain(std::string("velmar: ") + error.what());
    return static_cast<int>(ExitCode::wrong_usage);
  } catch (const velmar::drawing::Error& error) {
    velmar::cli::complain("velmar: " + velmar::cli::printable(error.what()));
  } catch (const std::exception& error) {
    velmar::cli::complain(std::string("velmar: internal error: ") + error.what());
  }
  return static_cast<int>(ExitCode::drawing_failed);
}
