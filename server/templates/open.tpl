{token}{optional token}
