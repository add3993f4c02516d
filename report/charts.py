"""The form in which charts reach the page: a chart has a view for each family, a view two panels,
a panel series of points. A point is [x, y]; y is None where there is nothing to show."""

from families import PRECISIONS


def series(role, name, points):
    return {"role": role, "name": name, "points": points}


def panel(family, precision, all_series):
    return {"id": precision, "title": f"{PRECISIONS[precision]} ({family.type(precision)})",
            "series": [one for one in all_series if any(y is not None for _, y in one["points"])]}


def batch_panel(family, precision, layout, all_series):
    found = panel(family, precision, all_series)
    return {**found, "id": f"{precision}_{layout}", "title": f"{found['title']}, {layout}"}


def view(family, panels, note="", x_axis=None):
    return {"x": x_axis or family.x_axis(), "panels": panels, "note": note}


def categories(label):
    return {"kind": "category", "label": label, "heading": ""}


def chart(identifier, title, intro, y_axis, views):
    return {"id": identifier, "title": title, "intro": intro, "y": y_axis, "views": views}
