#!/bin/sh
# Puts files of a folder into a zip whose bytes follow from theirs alone:
#   make-zip.sh CMAKE ZIP DATE FOLDER FILE...
set -eu
cmake=$1 zip=$2 date=$3 folder=$4
shift 4
cd "$(dirname "$folder")"
top=$(basename "$folder")
for file; do
    set -- "$@" "$top/$file"
    shift
    chmod 644 "$top/$file"
done
rm -f "$zip"
TZ=UTC "$cmake" -E tar cf "$zip" --format=zip --mtime="$date 00:00:00 UTC" -- "$@"
# Each entry tells three times, of which only the first is the date's, and its owner: in its own head and in the
# directory at the end, of which the last 22 bytes tell the count and the place.
perl -0777 -pi -e '
    my ($count, $at) = unpack("v x4 V", substr($_, -12, 10));
    sub patch {
        my $extra = \substr($_, $_[0], $_[1]);
        $$extra =~ s/(UT\x0d\0\x07(....))......../$1$2$2/s;
        $$extra =~ s/(ux\x0b\0\x01\x04)....(\x04)..../$1\0\0\0\0$2\0\0\0\0/s;
    }
    while ($count-- > 0) {
        my ($name, $extra, $comment, $head) = unpack("v3 x8 V", substr($_, $at + 28, 18));
        patch($at + 46 + $name, $extra);
        patch($head + 30 + unpack("v", substr($_, $head + 26, 2)), unpack("v", substr($_, $head + 28, 2)));
        $at += 46 + $name + $extra + $comment;
    }' "$zip"
