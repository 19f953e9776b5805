// Tells a page's own writing into its controls from a user's. A control reports both alike: an edit field
// notifies of its spin's new position, too.
#pragma once

// In force while it lives. For the one thread that pages run on.
class OwnChanges {
  public:
    OwnChanges() { ++s_depth; }
    ~OwnChanges() { --s_depth; }
    OwnChanges(const OwnChanges&) = delete;
    OwnChanges& operator=(const OwnChanges&) = delete;

    // True while a page itself writes; what its controls report then is no change of a setting.
    static bool InProgress() { return s_depth > 0; }

  private:
    inline static int s_depth = 0;
};
