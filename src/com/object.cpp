#include "com/object.h"

#include <atomic>

namespace corvelle::com {

namespace {

std::atomic<long> objects = 0;

} // namespace

long objectCount() {
    return objects;
}

void lockModule() {
    ++objects;
}

void unlockModule() {
    --objects;
}

} // namespace corvelle::com
