// The precompiled header of the test programs belongs to this.
