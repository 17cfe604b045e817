#pragma once

/// Hands the command line on to the full program, "tagwright-full", which stands beside this one
/// or in ../libexec/tagwright. Returns the exit status when that failed or where the system
/// cannot replace a process by another.
int runFullProgram(int argc, char **argv);
