// Our own share of a key press, with a library of 10,000 notes: from the trigger to the moment at
// which the recorder is told to begin.
