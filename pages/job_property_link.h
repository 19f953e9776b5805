// What all ways to the job property application need.
#pragma once

#include <string>

// The path of the application and a blank, with which each of its command lines begins.
std::string CreateCommand();

// The name of the data setting key, under which the application finds the settings. From now on all of them
// stand there.
std::string HandOutSettingKeyName();
