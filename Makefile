# Every target installs what it needs first (scripts/bootstrap); `make` alone lists the targets.
SHELL := /bin/bash
.DEFAULT_GOAL := help
.PHONY: help run test build bench sanitize fuzz pictures docs install package format lint clean

JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 60
PREFIX ?= /usr/local
CTEST = ctest --output-on-failure --no-tests=error -j$(JOBS)

help: ## list the targets
	@grep -hE '^[a-z]+:.*##' $(MAKEFILE_LIST) | awk -F ':.*## ' '{ printf "  make %-9s %s\n", $$1, $$2 }'

run: build ## build, then compute the contact travel of bundled parts
	@scripts/run-demo build/release

build: ## build the libraries, the driver and the Python module into build/release
	@scripts/bootstrap build
	@cmake --preset release > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	@cmake --build build/release -j$(JOBS) --target product

test: ## build everything, run all tests, again under the address and undefined-behaviour sanitizers
	@scripts/bootstrap build test package
	cmake --preset release
	cmake --build build/release -j$(JOBS)
	cmake --preset asan -DORVEX_BUILD_PYTHON=OFF
	cmake --build build/asan -j$(JOBS)
	$(CTEST) --test-dir build/asan
	$(CTEST) --test-dir build/release

bench: ## measure the hot paths against what one would take instead
	@scripts/bootstrap build bench
	cmake --preset bench
	cmake --build build/bench -j$(JOBS)
	scripts/run-benchmarks build/bench

sanitize: ## the tests under the address, undefined-behaviour and thread sanitizers, the Python module's too
	@scripts/bootstrap build test
	cmake --preset asan -DORVEX_BUILD_PYTHON=ON
	cmake --build build/asan -j$(JOBS)
	$(CTEST) --test-dir build/asan
	cmake --preset tsan
	cmake --build build/tsan -j$(JOBS)
	$(CTEST) --test-dir build/tsan

fuzz: ## run every fuzzer for FUZZ_SECONDS (60)
	@scripts/bootstrap build fuzz
	cmake --preset fuzz
	cmake --build build/fuzz -j$(JOBS) --target fuzzers
	scripts/run-fuzzers build/fuzz $(FUZZ_SECONDS)

pictures: ## draw every style of annotations and parts into build/release/pictures, to be looked at
	@scripts/bootstrap build
	cmake --preset release
	cmake --build build/release -j$(JOBS) --target pictures

docs: ## make the reference of all classes, with the pages of docs/, into build/docs/html
	@scripts/bootstrap docs
	@scripts/build-docs

install: build ## install libraries, headers, driver and Python module below PREFIX (/usr/local); DESTDIR is honoured
	@DESTDIR="$(DESTDIR)" cmake --install build/release --prefix "$(PREFIX)" > build/install.log || { cat build/install.log; exit 1; }
	@if [ -z "$(DESTDIR)" ] && [ "$$(id -u)" = 0 ]; then ldconfig; fi
	@echo "installed below $(DESTDIR)$(PREFIX)"

package: build ## make the Debian packages of library, development files, tools and Python module in build/packages
	@scripts/bootstrap package
	@cmake --preset release > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	@rm -rf build/packages
	@cpack --config build/release/CPackConfig.cmake -B build/packages > build/package.log 2>&1 || { cat build/package.log; exit 1; }
	@rm -rf build/packages/_CPack_Packages
	@ls build/packages/*.deb

format: ## format the sources
	@scripts/bootstrap lint
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

lint: build ## check format, class lists, installed headers, scripts, and run the static analyser
	@scripts/bootstrap test lint
	git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
	scripts/check-classes
	scripts/check-headers build/release
	shellcheck $$(grep -lE '^#!.*\b(ba)?sh$$' .ci/run scripts/* cmake/python3-orvex/*)
	cmake --preset dev
	git ls-files 'Base/*.cpp' 'KTLOxu*/*.cpp' 'frontends/*.cpp' | xargs -P$(JOBS) -n 4 clang-tidy -p build/dev --quiet --extra-arg=-Wno-unknown-warning-option

clean: ## remove the build folder
	rm -rf build
