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

void writeDesigner(base::OutputFile& configuration, std::string_view name) {
    configuration.write("<P>");
    configuration.write(name);
    configuration.write("</P>\r\n");
}

void writeControl(base::OutputFile& configuration, std::string_view name, std::string_view className,
                  std::string_view idhName) {
    configuration.write("<C>");
    configuration.write(name);
    configuration.write(" ");
    configuration.write(className);
    configuration.write(" ");
    configuration.write(idhName);
    configuration.write("</C>\r\n");
}

} // namespace corvelle::indexer
