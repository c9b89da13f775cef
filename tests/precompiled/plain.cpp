// The library whose precompiled header the tests without a program take.
