// The three standard streams, made safe before anything else happens, and the sink that keeps messages off the standard
// output stream.
#pragma once

// A stream that the program was started without would be taken by the next file that is opened, and messages would end
// up in that file. Puts an empty stream in its place: reading gives the end, writing fails. A reader that goes away
// makes writing fail too, instead of ending the process.
void SecureStandardStreams();

// From now on what the module prints on the command line goes to the standard error stream, one line each, so that the
// standard output stream holds nothing but the answer.
void SendCommandLineToStandardError();
