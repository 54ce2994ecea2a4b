#pragma once

#include "base/line_reader.h"

namespace corvelle::workspace {

using base::LineReader;
using base::linesOf;

} // namespace corvelle::workspace
