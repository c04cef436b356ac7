templates: {token}
