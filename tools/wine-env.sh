# Sourced: the environment in which this project's Windows programs run. Needs ZR_ROOT, the project's folder.
# A prefix of the user's own, as WINEPREFIX may name one, is left alone.
export WINEPREFIX="${ZR_WINEPREFIX:-$ZR_ROOT/build/wineprefix}"
export WINEARCH=win64
export WINEDEBUG="${WINEDEBUG:--all}"
export WINELOADER=/usr/lib/wine/wine64
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
# The ANSI code page of every program under Wine follows from this, so a test of another page sets ZR_WINE_LOCALE.
export LC_ALL="${ZR_WINE_LOCALE:-ja_JP.UTF-8}"
# The user's folders inside the prefix are links into $HOME; they must not land in the developer's own.
export HOME="$WINEPREFIX/home"
