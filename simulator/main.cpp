#include "simulator/program.h"

int main(int count, char** words) { return sim::run_program(count, words); }
