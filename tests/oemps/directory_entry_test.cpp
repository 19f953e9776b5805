// What becomes of an entry of a directory that is to be deleted.
#include "oemps/directory_entry.h"

#include <gtest/gtest.h>

TEST(EntryToDelete, IsNeitherTheDirectoryItselfNorTheOneAboveIt) {
    EXPECT_EQ(DeletionOf({".", true}), EntryDeletion::None);
    EXPECT_EQ(DeletionOf({"..", true}), EntryDeletion::None);
}

TEST(EntryToDelete, IsAFileOrADirectory) {
    EXPECT_EQ(DeletionOf({"file.txt", false}), EntryDeletion::File);
    EXPECT_EQ(DeletionOf({"folder", true}), EntryDeletion::Directory);
    EXPECT_EQ(DeletionOf({"..a", true}), EntryDeletion::Directory);
    EXPECT_EQ(DeletionOf({" a", true}), EntryDeletion::Directory);
    EXPECT_EQ(DeletionOf({".x", false}), EntryDeletion::File);
}

TEST(EntryToDelete, HasNoNameThatLeadsElsewhere) {
    for (const char* name : {"",  "..\\other", "a\\b", "../other", "c:", "?",   "a?b", "*",  "a*",  "\"", "<",
                             ">", "|",         "表\\", "...",      "a.", "a..", " ",   "a ", "a. ", ". "})
        for (const bool isDirectory : {false, true})
            EXPECT_EQ(DeletionOf({name, isDirectory}), EntryDeletion::Impossible) << name;
}

TEST(EntryToDelete, MayHaveCharactersWhoseSecondByteIsABackslashOrABar) {
    EXPECT_EQ(DeletionOf({"表示", true}), EntryDeletion::Directory);
    EXPECT_EQ(DeletionOf({"予ソポ.txt", false}), EntryDeletion::File);
}
