// Where the owner of a printer's jobs is kept, for those who store it and those who lay it over a record.
#pragma once

namespace owner_values {

// Printer data below "PrinterDriverData": the authentication mode.
inline constexpr const char* kManageMethod = "ManageMethod";

// Values of the user's key for the printer.
inline constexpr const char* kSpecifyOwner = "SpecifyJobOwnerName_User";
inline constexpr const char* kOwner = "JobOwnerName_User";
inline constexpr const char* kPassword = "JobOwnerNamePassword_User";
inline constexpr const char* kAccount = "AccountID_User";

} // namespace owner_values
