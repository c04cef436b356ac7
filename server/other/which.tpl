other: {token}
