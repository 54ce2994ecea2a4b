#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace corvelle::indexer {

/// A file that the lines of an index go into. Both functions throw base::FileError.
class IndexOutput {
  public:
    virtual ~IndexOutput() = default;

    virtual void write(std::string_view bytes) = 0;
    virtual void close() = 0;
};

/// Opens the file of that path to be written anew; throws base::FileError.
using OpenIndexOutput = std::function<std::unique_ptr<IndexOutput>(const std::string& path)>;

/// Opens it in its place: line by line stands there what has been written so far.
std::unique_ptr<IndexOutput> openInPlace(const std::string& path);

} // namespace corvelle::indexer
