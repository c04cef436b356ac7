<?php

declare(strict_types=1);

namespace Zorvel\Tools\Report;

enum Format: string
{
    case Text = 'text';
    case Json = 'json';
    case Github = 'github';
    case Checkstyle = 'checkstyle';

    public function report(): Report
    {
        return match ($this) {
            self::Text => new TextReport(),
            self::Json => new JsonReport(),
            self::Github => new GithubReport(),
            self::Checkstyle => new CheckstyleReport(),
        };
    }
}
