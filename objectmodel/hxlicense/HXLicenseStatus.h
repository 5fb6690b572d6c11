#pragma once
// HXLicenseStatus: the verdict on the licence the process holds, from the checks in the order they run.

enum class HXLicenseStatus {
    Valid,               // signed by the trusted key, not expired, bound to this machine or to none
    Absent,              // no licence was loaded, or the file could not be read
    Malformed,           // not a licence file: garbage, truncated, or fields missing
    UnsupportedVersion,  // a licence file of a format version this library does not read
    BadSignature,        // altered after signing, or signed by a key this library does not trust
    WrongMachine,        // bound to another machine
    Expired              // past its expiry date
};
