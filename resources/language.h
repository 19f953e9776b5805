// What differs between the languages of the resources: a script of a satellite says which one it is.
#ifdef ZR_ENGLISH
#include "resources/english.h"
#else
#include "resources/japanese.h"
#endif
