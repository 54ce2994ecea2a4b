#include "base/replace_with_backup.h"

namespace corvelle::base {

Replacement replaceWithBackup(ReplacingCalls& calls, const std::filesystem::path& target,
                              const std::filesystem::path& fresh, const std::filesystem::path& backup,
                              const std::function<bool(const std::filesystem::path&)>& isExpected) {
    using End = Replacement::End;
    if (const auto error = calls.replace(target, fresh, backup); error != 0) {
        // Halfway (1176, 1177) the old file may have got the backup's name and nothing its place. What stands
        // there by now is somebody else's.
        if (calls.exists(backup) && !calls.exists(target) && calls.move(backup, target, false) != 0)
            return {End::InBackup, error};
        return {End::Failed, error};
    }
    if (isExpected && !isExpected(backup)) {
        const auto error = calls.move(backup, target, true);
        return {error == 0 ? End::Changed : End::InBackup, error};
    }
    calls.remove(backup); // else a later run sweeps it
    return {};
}

} // namespace corvelle::base
