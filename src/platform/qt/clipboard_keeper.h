#pragma once
// On X11 the clipboard's text goes with the program that put it there. So the program leaves a
// second process of itself behind that holds the text until another program takes the clipboard.

// When the program ends: starts the keeper if the clipboard holds a text of this program, and waits
// until it has taken over (5 seconds at most).
void LeaveClipboardBehind();

// The keeper itself: reads UTF-8 text from standard input to its end, holds it, and says so by one
// byte on standard output. Returns the exit status.
int KeepClipboard(int& argc, char** argv);
