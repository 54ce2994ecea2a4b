#pragma once

// What base.idl stands for in the headers that are made of our libraries.
#include <oaidl.h>
