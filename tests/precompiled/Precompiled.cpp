// The headers are compiled, and nothing else is.
int main() { }
