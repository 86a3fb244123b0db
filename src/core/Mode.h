#pragma once

/// The mode of a record screen, and of the save that it asks for.
enum class Mode : char {
    Browse = 'B', ///< looking; the first edit turns it to Modify
    Add = 'A',    ///< a new record
    Modify = 'M', ///< a changed record
};
