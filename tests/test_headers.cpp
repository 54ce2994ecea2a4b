// Nothing of its own: the headers that are compiled once for every test program belong to its library.
