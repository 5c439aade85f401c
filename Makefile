# The commands of the house; what each needs from the machine is installed first.
.PHONY: run test deps

# Starts the program. Without a display it draws the windows of a sample household into PNG files instead.
run: deps
	@tools/run.sh

# Builds the debug preset and runs every test.
test: deps
	cmake --preset debug
	cmake --build --preset debug
	ctest --preset debug

deps:
	@tools/install_deps.sh
