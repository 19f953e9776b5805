// Deleting a directory with all in it.
#pragma once

// Deletes what is in the directory and then the directory; 1 if it is gone. The first entry that stays ends
// it with 0, and what was deleted before stays deleted. A path of more than 259 bytes stays, and so do a
// drive's own directory, a path that ends in a point or a blank, and a directory with a name that the code
// page does not have. A link is deleted itself: what it leads to is left alone, also where the path itself
// is one, with or without separators at its end.
int DeleteDirectoryTree(const char* path);
