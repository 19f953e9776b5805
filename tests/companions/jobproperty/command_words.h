// The command lines as the plug-in forms them, written out.
#pragma once

#include <string>

inline std::string IdOf(const std::string& key) {
    return key.substr(key.size() - 16);
}
inline std::string StartWords(const std::string& key) {
    return "-start " + IdOf(key) + " " + key + " PDF ja-JP -ip  -onceForce  -iotproduct 10";
}
inline std::string ShowWords(const std::string& key) {
    return " -show " + IdOf(key) + " " + key + " PDF ";
}
inline std::string ExitWords(const std::string& key) {
    return "-exit " + IdOf(key);
}
inline const std::string kFileWords =
    "-file dummyID dummyRegKey PDF ja-JP -ip 192.0.2.1 -onceForce -iotproduct 10 ";
