from typing import Any, Callable

__ua_domain__: str

def __ua_function__(method: Callable[..., Any], args: tuple[Any, ...], kwargs: dict[str, Any]) -> Any: ...
