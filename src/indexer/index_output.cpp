#include "indexer/index_output.h"

#include "base/file.h"
#include "base/path_text.h"

namespace corvelle::indexer {

namespace {

class InPlace : public IndexOutput {
  public:
    explicit InPlace(const std::string& path) : file_(base::pathOf(path)) {}

    void write(std::string_view bytes) override { file_.write(bytes); }
    void close() override { file_.close(); }

  private:
    base::OutputFile file_;
};

} // namespace

std::unique_ptr<IndexOutput> openInPlace(const std::string& path) {
    return std::make_unique<InPlace>(path);
}

} // namespace corvelle::indexer
