#include "tools/provision/run.h"

int main(int argc, char** argv) {
  return varnhold::provision::run({argv + 1, argv + argc}, {argc, argv, std::nullopt});
}
