// Only the precompiled header beside this file is wanted.
