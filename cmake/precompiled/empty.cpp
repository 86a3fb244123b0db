// A precompiled header needs a target, and a target a source.
