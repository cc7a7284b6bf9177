// Linked statically, and so out of reach for the simulated board.

int main() {}
