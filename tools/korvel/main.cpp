#include "tools/korvel/App.h"

int main(int argc, char** argv) { return korvel::RunApp(argc, argv); }
