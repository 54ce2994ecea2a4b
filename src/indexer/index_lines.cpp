#include "indexer/index_lines.h"

#include <string>

namespace corvelle::indexer {

void writeDefine(base::OutputFile& header, std::string_view idhName, std::int32_t number) {
    header.write("#define ");
    header.write(idhName);
    header.write("  ");
    header.write(std::to_string(number));
    header.write("\r\n");
}

} // namespace corvelle::indexer
