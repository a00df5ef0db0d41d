#pragma once

/// Windows of the pendant application that a page can ask for.
enum windType {
    WIND_JOB_FILES = 4 ///< the list of job files
};
