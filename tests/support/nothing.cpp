// A program that only stands for its precompiled headers.
