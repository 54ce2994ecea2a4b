#pragma once

// What stdole.idl stands for in the headers that are made of our libraries.
#include <olectl.h>
