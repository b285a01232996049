#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/call_record.h"
#include "embedded/document_state.h"
#include "embedded/scripted_input.h"
