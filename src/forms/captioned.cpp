#include "forms/captioned.h"

#include "base/text.h"

namespace corvelle::forms {

bool Captioned::hasAccelerator(char letter) const {
    if (!useMnemonic()) return false;
    const std::string& text = caption();
    for (auto i = text.find('&'); i != std::string::npos && i + 1 < text.size(); i = text.find('&', i + 2)) {
        if (text[i + 1] != '&') return base::upper(text[i + 1]) == base::upper(letter);
    }
    return false;
}

} // namespace corvelle::forms
