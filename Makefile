# The two entry points of the README, plus benchmarks and fuzzing.
#   make run    installs what is missing, builds in Release and starts the program
#   make test   installs what is missing, builds with the sanitizers and runs every test
#   make bench  builds in Release and runs the benchmarks
#   make fuzz   builds every fuzz target with clang's libFuzzer and fuzzes each for FUZZ_SECONDS
#   make screenshots  draws every window into build/screenshots, in Italian and in English, and at
#                     150% scaling into build/screenshots/150

JOBS ?= 2
# ccache (when installed) keys objects by paths relative to the checkout, so a fresh clone in
# another folder reuses what an earlier build of the same sources compiled.
export CCACHE_BASEDIR := $(CURDIR)
export CCACHE_NOHASHDIR := 1
RELEASE_DIR := build/release
TEST_DIR := build/asan

.PHONY: deps run build test bench fuzz clean screenshots

deps:
	@bash scripts/install-deps.sh

$(RELEASE_DIR)/build.ninja: | deps
	cmake -S . -B $(RELEASE_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Release

build: deps $(RELEASE_DIR)/build.ninja
	cmake --build $(RELEASE_DIR) -j $(JOBS)

# With dorvanta-server --demo on the program's default address when nothing answers there.
run: build
	@bash scripts/run-with-server.sh $(RELEASE_DIR)

$(TEST_DIR)/build.ninja: | deps
	cmake -S . -B $(TEST_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DDORVANTA_SANITIZE=ON \
		-DDORVANTA_WERROR=$(if $(CI),ON,OFF)

test: deps $(TEST_DIR)/build.ninja
	cmake --build $(TEST_DIR) -j $(JOBS)
	cd $(TEST_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# Every window of the program drawn into PNG files, in Italian and in English, without a desktop.
screenshots: build
	QT_QPA_PLATFORM=offscreen $(RELEASE_DIR)/dorvanta-screenshots build/screenshots
	QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1.5 $(RELEASE_DIR)/dorvanta-screenshots build/screenshots/150

bench: build
	$(RELEASE_DIR)/bench/dorvanta-bench
	@for b in $(RELEASE_DIR)/bench/dorvanta-bench-*; do \
		[ -x "$$b" ] || continue; echo "== $$b"; "$$b" || exit 1; done

# Every reader's fuzz target in turn, FUZZ_SECONDS each; failing inputs stay in build/fuzz.
FUZZ_SECONDS ?= 600
FUZZ_DIR := build/fuzz

fuzz: deps
	cmake -DSOURCE_DIR=$(CURDIR) -DBUILD_DIR=$(CURDIR)/$(FUZZ_DIR) -DCLANGXX=clang++ -DGENERATOR=Ninja \
		-DSECONDS=$(FUZZ_SECONDS) -P fuzz/EseguiLibFuzzer.cmake

clean:
	rm -rf build
