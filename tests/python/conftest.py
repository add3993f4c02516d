import numpy as np
import pytest
from hypothesis import HealthCheck, settings

# Nothing is written beside the tests, and a slow machine is no fault.
settings.register_profile("package", database=None, deadline=None, derandomize=True,
                          suppress_health_check=list(HealthCheck))
settings.load_profile("package")


@pytest.fixture
def rng():
    return np.random.default_rng(20)
