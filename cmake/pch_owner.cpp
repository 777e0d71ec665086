// The one source of each precompiled-header target (cmake/EstimateTargets.cmake): the header
// is compiled for it and reused by every library or test of its kind.
