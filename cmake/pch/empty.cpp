// A target needs a source to build its precompiled header.
