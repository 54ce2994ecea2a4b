#include "com/connection_point.h"

#include <algorithm>
#include <vector>

namespace corvelle::com {

Ptr<IDispatch> ConnectionPoint::accepted(const Ptr<IUnknown>& sink) {
    auto answers = sink.queryAs<IDispatch>(events());
    if (!answers) answers = sink.query<IDispatch>();
    return answers;
}

void ConnectionPoint::fire(DISPID id, std::initializer_list<VARIANT> arguments) {
    forEachSink([&](IDispatch& sink) {
        std::vector<VARIANT> values(arguments);
        std::reverse(values.begin(), values.end());
        DISPPARAMS parameters{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
        Variant result;
        EXCEPINFO information{};
        const auto status = sink.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                        result.receive(), &information, nullptr);
        if (FAILED(status)) runTimeError(status, information); // frees its texts
    });
}

} // namespace corvelle::com
